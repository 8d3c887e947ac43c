// What a typed text means in the command palette, and in which order.
#include "app/command_search.h"
#include "platform/text/pinyin.h"
#include "tests/support/script.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

using namespace Qt::StringLiterals;

const std::vector<CommandSearch::Entry> Entries = {
    {u"出货渠道计价标准"_s, u"A01"_s},
    {u"出货渠道区域成本"_s, u"A011"_s},
    {u"客户资料与报价"_s, u"A03"_s},
    {u"速递单据"_s, u"B01"_s},
    {u"渠道出货明细表"_s, u"C01"_s},
    {u"客户对帐明细表"_s, u"C02"_s},
    {u"付款"_s, u"PayLst"_s},
    {u"应付款明细帐"_s, u"KuanMx"_s},
    {u"增加应付"_s, u"zhLst"_s},
    {u"增加应收"_s, u"zhLst"_s},
    {u"厦门 2 区"_s, {}},
    {u"系统数据备份"_s, u"S032"_s},
    {u"单价查询"_s, {}},
};

bool All(int) {
    return true;
}

QString Captions(const CommandSearch& search, const QString& typed,
                 const std::function<bool(int)>& offered = All) {
    QStringList captions;
    for (const auto& hit : search.Find(typed, offered))
        captions += Entries[static_cast<std::size_t>(hit.entry)].caption;
    return captions.join(u' ');
}

TEST(CommandSearch, FindsByCaptionShortNameInitialsAndSyllables) {
    const CommandSearch search(Entries);
    const struct {
        QString typed, found;
    } rows[] = {
        {u"明细"_s, u"渠道出货明细表 客户对帐明细表 应付款明细帐"_s},
        {u"mx"_s, u"渠道出货明细表 客户对帐明细表 应付款明细帐"_s},
        {u"mingx"_s, u"渠道出货明细表 客户对帐明细表 应付款明细帐"_s},
        {u"zhangmin"_s, u"客户对帐明细表"_s},  // the last one half
        {u"明xi"_s, u"渠道出货明细表 客户对帐明细表 应付款明细帐"_s},
        {u" K H　dz "_s, u"客户对帐明细表"_s},
        {u"ｋｈｄｚ"_s, u"客户对帐明细表"_s},  // full-width, as an input method leaves it
        {u"b01"_s, u"速递单据"_s},
        {u"zhlst"_s, u"增加应付 增加应收"_s},
        {u"kuan mx"_s, u"应付款明细帐"_s},  // short name and pinyin alike
        // Whole before beginning before inside.
        {u"a01"_s, u"出货渠道计价标准 出货渠道区域成本"_s},
        {u"fk"_s, u"付款 应付款明细帐"_s},
        {u"chu"_s, u"出货渠道计价标准 出货渠道区域成本 渠道出货明细表"_s},
        // 单 is a name at the beginning: both readings count.
        {u"djcx"_s, u"单价查询"_s},
        {u"shanjiachaxun"_s, u"单价查询"_s},
        // Read wrong by both, and what has no reading may be left out.
        {u"xm"_s, u"厦门 2 区"_s},
        {u"xiamen2qu"_s, u"厦门 2 区"_s},
        {u"sm"_s, QString()},
        {u"'"_s, QString()},
        {u"a01x"_s, QString()},
    };
    for (const auto& row : rows) EXPECT_EQ(Captions(search, row.typed), row.found) << row.typed.toStdString();
    EXPECT_EQ(search.Find(u" "_s, All).size(), Entries.size()) << "nothing typed";
    EXPECT_EQ(Captions(search, u"mx"_s, [](int entry) { return entry == 5; }), u"客户对帐明细表"_s);
}

TEST(CommandSearch, SaysWhatTheTextMeans) {
    const CommandSearch search(Entries);
    const struct {
        QString typed;
        TextPiece caption, shortName;
    } rows[] = {{u"khdzm"_s, {0, 5}, {}},
                {u"对帐"_s, {2, 2}, {}},
                {u"zhangmingxi"_s, {3, 3}, {}},
                {u"c02"_s, {}, {0, 3}},
                {u"02"_s, {}, {1, 2}}};
    for (const auto& row : rows) {
        const auto hits = search.Find(row.typed, [](int entry) { return entry == 5; });
        ASSERT_EQ(hits.size(), 1U) << row.typed.toStdString();
        EXPECT_EQ(hits[0].caption, row.caption) << row.typed.toStdString();
        EXPECT_EQ(hits[0].shortName, row.shortName) << row.typed.toStdString();
    }
    EXPECT_EQ(search.Initials(5), u"khdzmxb"_s);
    EXPECT_EQ(search.Initials(10), u"xm 2 q"_s);
}

TEST(CommandSearch, PutsWhatWasUsedLastFirstAmongEquals) {
    CommandSearch search(Entries);
    for (const int used : {7, 5, 1, 5}) search.Used(used);
    EXPECT_EQ(Captions(search, u"mx"_s), u"客户对帐明细表 应付款明细帐 渠道出货明细表"_s);
    EXPECT_EQ(Captions(search, u"a01"_s), u"出货渠道计价标准 出货渠道区域成本"_s)
        << "the whole name is no equal";
    EXPECT_EQ(search.Find({}, All).front().entry, 5);
}

TEST(Pinyin, KnowsPhrasesThatItsSourcesReadWrong) {
    const struct {
        QString text, syllables;
    } rows[] = {{u"厦门"_s, u"xia men"_s},
                {u"厦"_s, u"sha"_s},
                {u"银行会计"_s, u"yin hang kuai ji"_s},
                {u"汇率"_s, u"hui lv"_s},
                {u"A4 纸"_s, u"a 4  zhi"_s},
                {u"𠀀好"_s, u"  hao"_s},
                {u"调整、还款"_s, u"tiao zheng  huan kuan"_s}};
    for (const auto& row : rows) {
        QStringList usual;
        for (const QStringList& unit : text::Readings(row.text)) usual += unit.value(0);
        EXPECT_EQ(usual.join(u' '), row.syllables) << row.text.toStdString();
    }
    EXPECT_EQ(text::Readings(u"重量"_s)[0], (QStringList{u"zhong"_s, u"chong"_s}));
}

}  // namespace
}  // namespace tests
