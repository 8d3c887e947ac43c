// The statements of many customers: names of files, what exists, what cannot be written, which customers are
// chosen, and the stop by Esc.
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "reports/batch_statements.h"
#include "tests/reports/report_desk.h"
#include "tests/support/by_keys.h"
#include "tests/support/files.h"
#include "tests/support/workbooks.h"

#include <QApplication>
#include <QDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Summary = u"对帐单汇总_2024-02-15至2024-03-15"_s;

/// A customer with one waybill of 10 yuan.
QStringList Customer(const QString& code, const QString& name) {
    return {
        u"insert into M03 (F1,F2) VALUES (\"%1\",\"%2\")"_s.arg(code, name),
        u"insert into B01 (F1,F101,F603,F501,F402,F504) VALUES (\"W%1\",'2024-03-15',\"%1\",'月结',0.1,10)"_s
            .arg(code)};
}

class Batch : public testing::Test {
  protected:
    void Open() {
        desk.Frame().ShowChild(u"BatchStatements"_s);
        desk.Enter(u"Txt(0)"_s);
        TypeOver(folder.path());
    }
    void Add(const QString& code, const QString& name) {
        for (const QString& statement : Customer(code, name)) desk.Execute(statement);
    }
    void Generate(const QString& words) {
        desk.script.Box(words, MsgTitle);
        desk.Push(u"Cmd(1)"_s);
        EXPECT_TRUE(desk.script.Done()) << words.toStdString();
    }
    QString Files() {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name).join(u'|');
    }
    QStringList SummaryRows(const QString& file) {
        QStringList lines;
        for (const QStringList& row : ReadWorkbook(folder.filePath(file)).rows.mid(2))
            lines += row.join(u'|');
        return lines;
    }

    QTemporaryDir folder;
    ReportDesk desk;
};

TEST(BatchNames, FitAnyFileSystem) {
    const QString longName(90, u'华');
    const struct {
        QString code, name, file;
    } rows[] = {{u"A1"_s, u"华兴"_s, u"A1_华兴"_s},
                {u"A/1\\:"_s, u"a*b?\"<c>|\t\x7f"_s, u"A_1___a_b___c____"_s},
                {u"A1"_s, u"Co. . "_s, u"A1_Co"_s},
                {u"A1"_s, {}, u"A1"_s},
                {u".."_s, {}, u"_"_s},
                {u" ."_s, u"x"_s, u"_ ._x"_s},
                {u"A"_s, longName, u"A_"_s + longName.left(66)},
                {u"A"_s, QString(45, u'x') + u"𠀋"_s.repeated(50),
                 u"A_"_s + QString(45, u'x') + u"𠀋"_s.repeated(38)}};
    for (const auto& row : rows)
        EXPECT_EQ(reports::StatementFileName({.code = row.code, .name = row.name}), row.file);
}

TEST_F(Batch, NeverReplacesAFileAndGoesOnBehindACustomerWithoutStatement) {
    Add(u"A"_s, u"华/兴"_s);
    Add(u"A_华"_s, u"兴"_s);  // their files would have one name
    Add(u"B"_s, u"O'Hara"_s);
    desk.Execute(u"insert into B01 (F1,F101,F603,F501,F504) VALUES ('X1','2024-03-15','A','现金',1)"_s);
    desk.Execute(u"insert into B01 (F1,F101,F603,F501,F504) VALUES ('X2','2024-02-14','A','月结',1)"_s);
    desk.Execute(
        u"insert into B01 (F1,F101,F603,F501,F402,F504) VALUES ('X3','2024-02-15','A','月结',0.2,0.1)"_s);
    desk.Execute(
        u"insert into B01 (F1,F101,F603,F501,F402,F504) VALUES (\"O'1\",'2024-02-15','C','月结',1,1)"_s);
    Write(folder.filePath(u"A_华_兴.pdf"_s), "old");
    desk.Execute(u"insert into PRNTC023 (F1) VALUES ('left')"_s);
    Open();
    EXPECT_EQ(desk.Lines(),
              (QStringList{u"√|A|华/兴|2|||"_s, u"√|A_华|兴|1|||"_s, u"√|B|O'Hara|1|||"_s, u"√|C||1|||"_s}));
    const QString words =
        u"已生成 3 个客户的对帐单，1 个未生成。\r汇总表：%1\rC.：语法错误：文本缺少结束的引号。"_s;
    Generate(words.arg(Summary + u".xls"_s));
    EXPECT_EQ(desk.Rows(u"select * from PRNTC023"_s), QStringList());
    const QString files =
        u"A_华_兴(2).pdf|A_华_兴(2).xls|A_华_兴(3).pdf|A_华_兴(3).xls|%1A_华_兴.pdf|%2B_O'Hara.pdf|"
        u"B_O'Hara.xls|%3"_s +
        Summary + u".xls"_s;
    EXPECT_EQ(Files(), files.arg(QString(), QString(), QString()));
    EXPECT_EQ(Bytes(folder.filePath(u"A_华_兴.pdf"_s)), "old");
    EXPECT_EQ(SummaryRows(Summary + u".xls"_s),
              (QStringList{u"A|华/兴|2|0.3|10.1|A_华_兴(2)|"_s, u"A_华|兴|1|0.1|10|A_华_兴(3)|"_s,
                           u"B|O'Hara|1|0.1|10|B_O'Hara|"_s, u"C||||||语法错误：文本缺少结束的引号。"_s,
                           u"合计||4|0.5|30.1||"_s}));
    Generate(words.arg(Summary + u"(2).xls"_s));
    EXPECT_EQ(Files(), files.arg(u"A_华_兴(4).pdf|A_华_兴(4).xls|A_华_兴(5).pdf|A_华_兴(5).xls|"_s,
                                 u"B_O'Hara(2).pdf|B_O'Hara(2).xls|"_s, Summary + u"(2).xls|"_s));
}

TEST_F(Batch, StopsWhereTheFolderTakesNoFile) {
    for (const QString& code : {u"A"_s, u"B"_s, u"C"_s}) Add(code, u"客户"_s);
    Open();
    QTimer removes;
    QObject::connect(&removes, &QTimer::timeout, [&] {
        if (Files().contains(u"A_客户.pdf"_s)) QDir(folder.path()).removeRecursively();
    });
    removes.start();
    Generate(u"已停止。已生成 1 个客户的对帐单，2 个未生成。\rB.客户：无法写入“"_s + folder.path() +
             u"/B_客户.xls”：文件夹不存在！\r无法写入“"_s + folder.path() + u'/' + Summary +
             u".xls”：文件夹不存在！"_s);
    removes.stop();
    EXPECT_TRUE(desk.Lines()[2].endsWith(u"|未生成"_s));
    QDir().mkpath(folder.path());
    const QString layout = AppFolder + u"prntc023.rpt"_s;
    QFile::remove(layout);
    desk.script.BoxContaining(u"prntc023.rpt"_s);
    desk.Push(u"Cmd(1)"_s);
    desk.Enter(u"Txt(0)"_s);
    TypeOver(u"reports"_s);
    Generate(u"文件夹“reports”不存在！"_s);
    desk.Enter(u"Txt(0)"_s);
    TypeOver({});
    Generate(u"请首先选择文件夹!"_s);
    AltKey(u'N');
    Generate(u"请选择客户!"_s);
    desk.At<controls::DTPicker>(u"DTP(0)"_s).SetValue(QDate(2024, 2, 1));
    Generate(u"日期已改变，请先刷新数据！"_s);
}

TEST_F(Batch, ReportsWhatItMadeWhereACommitFails) {
    for (const QString& code : {u"A"_s, u"B"_s, u"C"_s}) Add(code, u"客户"_s);
    Open();
    bool failed = false;
    const int hook = sys::AddCommandEndHook([&] {
        if (Files().contains(u"B_客户.pdf"_s) && !std::exchange(failed, true))
            throw DatabaseError(u"磁盘已满"_s, {}, true);
    });
    Generate(u"已停止。已生成 2 个客户的对帐单，1 个未生成。\r汇总表："_s + Summary +
             u".xls\rB.客户：磁盘已满"_s);
    sys::RemoveCommandEndHook(hook);
    EXPECT_TRUE(desk.Lines()[2].endsWith(u"|未生成"_s));
}

TEST_F(Batch, WritesTheChosenCustomersUntilEsc) {
    for (const QString& code : {u"A"_s, u"B"_s, u"C"_s, u"D"_s}) Add(code, u"客户"_s);
    Open();
    EXPECT_EQ(NotReachedByTab(*desk.Frame().Front()), QStringList());
    EXPECT_EQ(WithoutNameOrRole(desk.Frame()), QStringList());
    desk.Enter(u"GD"_s);
    Press(Qt::Key_Home);
    Press(Qt::Key_Space);
    Press(Qt::Key_Down);
    EXPECT_EQ(desk.Status(), u"共 4 个客户 已选 3 个"_s);
    ClickAt(*desk.Grid().viewport(), desk.Grid().CellRect(1, 0).center());
    EXPECT_EQ(desk.Status(), u"共 4 个客户 已选 4 个"_s);
    ClickAt(*desk.Grid().viewport(), desk.Grid().CellRect(1, 0).center());
    desk.script.File(u"对帐单保存到..."_s, folder.path());
    desk.Push(u"Cmd(0)"_s);
    EXPECT_EQ(FocusName(), u"Cmd(1)"_s);
    // Keys before Esc, of a command too, count for nothing.
    QTimer keys;
    QObject::connect(&keys, &QTimer::timeout, [&] {
        if (!Files().contains(u"B_客户.pdf"_s)) return;
        EXPECT_TRUE(desk.Frame().Front()->windowTitle().startsWith(u"正在生成 2/3"_s));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_R, Qt::AltModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        keys.stop();
    });
    keys.start();
    Generate(u"已停止。已生成 1 个客户的对帐单，2 个未生成。\r汇总表："_s + Summary + u".xls"_s);
    EXPECT_EQ(Files(), u"B_客户.pdf|B_客户.xls|"_s + Summary + u".xls"_s);
    EXPECT_EQ(SummaryRows(Summary + u".xls"_s),
              (QStringList{u"B|客户|1|0.1|10|B_客户|"_s, u"C|客户|||||未生成"_s, u"D|客户|||||未生成"_s,
                           u"合计||1|0.1|10||"_s}));
    EXPECT_EQ(desk.Frame().Front()->windowTitle(), u"批量对帐单"_s);
    EXPECT_EQ(desk.Lines()[0] + u' ' + desk.Lines()[1], u"|A|客户|1||| √|B|客户|1|0.1|10|B_客户"_s);
    EXPECT_EQ(desk.script.Settings().value(u"StatementFolder"_s), folder.path());
}

}  // namespace
}  // namespace tests
