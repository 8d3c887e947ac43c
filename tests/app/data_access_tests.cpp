// The shared questions and texts that forms and computations rest on.
#include "app/data_access.h"
#include "tests/support/company.h"
#include "tests/support/script.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(CodeToName, CleansTheTextCutsItToTheCodeAndFindsTheName) {
    const tests::Script script;
    tests::Company company;
    company.Run({u"insert into M03 (F1,F2) VALUES ('C1','东方')"_s,
                 u"insert into M03 (F1,F2) VALUES ('O’N','北方')"_s});
    const struct {
        QString typed, code, name;
    } rows[] = {
        {u" C1.东方.旧名 "_s, u"C1"_s, u"东方"_s},
        {u"c1"_s, u"c1"_s, u"东方"_s},
        {u"C\r\n1"_s, u"C1"_s, u"东方"_s},
        {u"O'N.北方"_s, u"O’N"_s, u"北方"_s},
        {u"C9."_s, u"C9"_s, u""_s},
        {u".C1"_s, u""_s, u""_s},
        {u"  "_s, u""_s, u""_s},
    };
    for (const auto& row : rows) {
        QString text = row.typed;
        EXPECT_EQ(CodeToName(company.Db(), text, u"M03"_s), row.name) << row.typed.toStdString();
        EXPECT_EQ(text, row.code);
    }
}

}  // namespace
