// A file of the first release is read, whatever the engine would do by itself.
#include "platform/dao/database.h"
#include "platform/dao/engine.h"
#include "schema/names.h"
#include "tests/support/data_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

/// An engine with other values of its own, as a later release has them.
class OtherDefaults {
  public:
    OtherDefaults() : engine_(u":memory:"_s) {
        engine_.Rows(u"pragma cipher_default_kdf_iter=256000"_s);
        engine_.Rows(u"pragma cipher_default_page_size=8192"_s);
        engine_.Rows(u"pragma cipher_default_use_hmac=off"_s);
    }
    ~OtherDefaults() {
        engine_.Rows(u"pragma cipher_default_kdf_iter=64000"_s);
        engine_.Rows(u"pragma cipher_default_page_size=1024"_s);
        engine_.Rows(u"pragma cipher_default_use_hmac=on"_s);
    }

  private:
    Connection engine_;
};

void ReadFrozen() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"tessik.dat"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(FROZEN_FILE), path));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    const auto db = dao::Database::Open(path, schema::kConnect.toString());
    auto rows = db->OpenRecordset(u"select F2 from TE1 order by F1"_s);
    EXPECT_EQ(rows.Fields(0).Text(), u"管理员"_s);
    db->Close();
    EXPECT_EQ(dao::Number(dao::OpenEngine(path, schema::kPassword).get(), "select count(*) from TE1"), 2);
}

TEST(AFrozenFile, IsReadByTheEngineOfToday) {
    ReadFrozen();
}

TEST(AFrozenFile, IsReadByAnEngineWithOtherDefaults) {
    const OtherDefaults defaults;
    ReadFrozen();
}

}  // namespace
}  // namespace tests
