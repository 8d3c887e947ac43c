// Layouts that cannot be: the message names the file, the line and the reason.
#include "platform/errors.h"
#include "tests/report/report_lab.h"

#include <QImage>

#include <gtest/gtest.h>

namespace tests {
namespace {

TEST(Layouts, AFaultIsNamedWithItsLine) {
    ReportLab lab;
    const struct {
        QStringView text;  ///< its lines are divided by line breaks
        int line;
        QStringView reason;
    } cases[] = {
        {u"", 1, u"文件不完整"},
        {u"<report>\n<data>select", 2, u"文件不完整"},
        {u"<report>\n<data>x</dota></report>", 2, u"不是正确的 XML"},
        {u"<raport/>", 1, u"最外层应为“report”"},
        {u"<report/>", 1, u"没有“data”"},
        {u"<report>\n<dada/></report>", 2, u"“report”中不能有“dada”"},
        {u"<report papier='A4'/>", 1, u"“report”没有属性“papier”"},
        {u"<report paper='A9'/>", 1, u"没有纸张“A9”"},
        {u"<report direction='up'/>", 1, u"属性“direction”的值应为 portrait 或 landscape"},
        {u"<report margins='1 2 3'/>", 1, u"属性“margins”应有四个数字"},
        {u"<report margins='1 1 1 nan'/>", 1, u"属性“margins”应有四个数字"},
        {u"<report margins='100 1 100 1'/>", 1, u"页边距太大"},
        {u"<report>\n\n<data/></report>", 3, u"“data”中没有语句"},
        {u"<report><data>s</data>\n<data>s</data></report>", 2, u"只能有一个“data”"},
        {u"<report><data>s</data>\n<table/></report>", 2, u"“table”中没有“column”"},
        {u"<report><data>s</data><table>\n<column/></table></report>", 2, u"“column”没有属性“width”"},
        {u"<report><data>s</data>\n<table><column width='900'/></table></report>", 2, u"超出版心"},
        {u"<report><data>s</data><table>\n<column width='x'/></table></report>", 2,
         u"属性“width”的值“x”不是数字"},
        {u"<report><data>s</data><table>\n<column width='9' once='ja'/></table></report>", 2, u"yes 或 no"},
        {u"<report><data>s</data><table>\n<column width='9' value='{F1'/></table></report>", 2,
         u"“{”没有对应的“}”"},
        {u"<report><data>s</data><table>\n<column width='9' value='F1}'/></table></report>", 2,
         u"“}”没有对应的“{”"},
        {u"<report><data>s</data><table>\n<column width='9' value='{}'/></table></report>", 2,
         u"表达式中“}”处有误"},
        {u"<report><data>s</data><table>\n<column width='9' value='{sum()}'/></table></report>", 2,
         u"参数个数不对"},
        {u"<report><data>s</data><table>\n<column width='9' value='{max(F1)}'/></table></report>", 2,
         u"没有函数“max”"},
        {u"<report><data>s</data><table>\n<column width='9' value='{sum(count())}'/></table></report>", 2,
         u"中不能再用"},
        {u"<report><data>s</data><table>\n<column width='9' value='{F1:0,0}'/></table></report>", 2,
         u"不是数字或日期格式"},
        {u"<report><data>s</data><table>\n<column width='9' value='{@KH}'/></table></report>", 2,
         u"没有公式“KH”"},
        {u"<report><data>s</data><table>\n<column width='9' value='{#seite}'/></table></report>", 2,
         u"没有“#seite”"},
        {u"<report><data>s</data><table>\n<column width='9'>x</column></table></report>", 2,
         u"“column”中不能直接写文字"},
        {u"<report><data>s</data><head><band>\n<text ink='red'>x</text></band></head></report>", 2,
         u"不是颜色"},
        {u"<report><data>s</data><head><band>\n<line x2='5' y2='5'/></band></head></report>", 2,
         u"“line”只能横或竖"},
        {u"<report><data>s</data><head><band>\n<picture width='5' height='5' "
         u"file='no.png'/></band></head></report>",
         2, u"图片“no.png”无法打开"},
        {u"<report><data>select F1 from PRNTC023</data><table>\n<column width='9' "
         u"value='{F7}'/></table></report>",
         2, u"语句的结果中没有字段“F7”"},
        {u"<report><data>select F1 from PRNTC023</data><table>\n<column width='9' "
         u"value='{a.F7}'/></table></report>",
         2, u"没有“lookup”“a”"},
        {u"<report>\n<data>select F1 from NOWHERE</data></report>", 2, u"NOWHERE"},
        {u"<report>\n<data>delete from PRNTC023</data></report>", 2, u""},
        {u"<report><data>select F1 from PRNTC023</data>\n<lookup name='a'>select 'x</lookup></report>", 2,
         u""},
    };
    lab.company.Run(u"insert into PRNTC023 (F1) values ('kept')"_s);
    for (const auto& one : cases) {
        const QString refusal = lab.Refusal(one.text.toString());
        const QString place = u"报表文件“test.rpt”第 %1 行：%2"_s.arg(one.line).arg(QString());
        EXPECT_TRUE(refusal.startsWith(place) && refusal.contains(one.reason.toString()))
            << one.text.toString().toStdString() << ": " << refusal.toStdString();
    }
    EXPECT_EQ(lab.company.Answer(u"select F1 from PRNTC023"_s), u"kept"_s);
    const QString deep = QString(u"("_s).repeated(10000), many = QString(u"1+"_s).repeated(10000);
    for (const QString& bad : {deep, many})
        EXPECT_TRUE(
            lab.Refusal(
                   u"<report><data>s</data><table><column width='9' value='{%11}'/></table></report>"_s.arg(
                       bad))
                .contains(u"太"_s));
    EXPECT_THROW(lab.LayOutFile(lab.Folder() + u"/missing.rpt"_s), RuntimeError);
}

TEST(Layouts, PicturesAreFoundBesideTheLayout) {
    ReportLab lab;
    QImage logo(40, 20, QImage::Format_ARGB32);
    logo.fill(Qt::transparent);
    ASSERT_TRUE(logo.save(lab.Folder() + u"/logo.png"_s));
    const auto document = lab.LayOut(
        u"<data>select F1 from PRNTC023</data><head><band height='9'><picture x='1' y='1' width='10' "
        u"height='5' "
        "file='logo.png'/></band></head>"_s);
    const auto& items = document->PageAt(0).items;
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(std::get<report::Picture>(items[0]).image.pixel(0, 0),
              0xFFFFFFFF);  // what is transparent is white
}

}  // namespace
}  // namespace tests
