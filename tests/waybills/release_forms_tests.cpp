// 扫描出货 and 未出货、未审核 by keys.
#include "platform/dao/busy.h"
#include "platform/system/guard.h"
#include "platform/system/sound.h"
#include "schema/data_files.h"
#include "tests/support/data_file.h"
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"
#include "waybills/waybill_fields.h"

#include <gtest/gtest.h>

using namespace waybills;

namespace tests {
namespace {

QString Waybill(const QString& number, const QString& day, const QString& mark, const QString& more) {
    return u"insert into B01 (F1,F101,F2061,F603,F604,F402,F202,F2021,F507) VALUES ('"_s +
           QStringList{number, day, u"Acme "_s + number, u"C1"_s, mark}.join(u"','"_s) + u"',3,"_s + more +
           u')';
}

const QStringList Waybills = {Waybill(u"W1"_s, u"2024-03-14"_s, u"未审核"_s, u"'H1','H1-1',30"_s),
                              Waybill(u"W2"_s, u"2024-03-08"_s, u"未出货"_s, u"'','',0"_s),
                              Waybill(u"W3"_s, u"2024-03-13"_s, u"小王"_s, u"'H1','H1-1',30"_s),
                              Waybill(u"W4"_s, u"2024-03-07"_s, u"未审核"_s, u"'H1','H1-1',30"_s),
                              Waybill(u"W5"_s, u"2024-03-11"_s, u"未审核"_s, u"'X9','H1-1',null"_s)};

class ReleaseForm : public Program {
  public:
    explicit ReleaseForm(const QString& form)
        : Program(WaybillMasters() + Waybills), before_(sys::alertSound()) {
        sys::alertSound() = [this] { ++sounds; };
        Frame().ShowChild(form);
        Settle();
    }
    ~ReleaseForm() { sys::alertSound() = before_; }
    void Scan(const QString& number, Qt::Key end = Qt::Key_Return) {
        Type(number);
        Press(end);
    }
    QString Marks() { return Rows(u"select F604 from B01 order by F1"_s).join(u' '); }

    int sounds = 0;

  private:
    std::function<void()> before_;
};

TEST(ScanRelease, ReleasesOrSaysWhyNotWithoutAQuestion) {
    ReleaseForm form(u"ScanRelease"_s);
    form.Scan(u"  w1 "_s);
    EXPECT_EQ(form.sounds, 0);
    form.script.SetNow(QDateTime(QDate(2024, 3, 15), QTime(10, 1)));
    form.Scan(u"W1"_s, Qt::Key_Tab);
    form.Scan(u"W3"_s);
    form.Scan(u"O'W2"_s);
    form.Scan(u"W22"_s);
    form.Scan(u"w22"_s);
    form.Scan({});
    EXPECT_EQ(form.sounds, 5);
    form.Scan(u"W2"_s, Qt::Key_Tab);
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    EXPECT_EQ(form.Lines(),
              (QStringList{
                  u"10:01:00|W2|Acme W2||3|已出货|"_s,
                  u"10:01:00|w22||||未出货|重复扫描（10:01:00），没有这个速递单"_s,
                  u"10:01:00|W22||||未出货|没有这个速递单"_s,
                  u"10:01:00|O'W2||||未出货|没有这个速递单"_s,
                  u"10:01:00|W3|Acme W3|环洋|3|未出货|该单已经出货!不能再次进行出货操作（审核人：小王）"_s,
                  u"10:01:00|W1|Acme W1|环洋|3|未出货|重复扫描（10:00:00），"
                  u"该单已经出货!不能再次进行出货操作"_s,
                  u"10:00:00|W1|Acme W1|环洋|3|已出货|"_s,
              }));
    EXPECT_EQ(form.Status(), u"扫描出货：共 7 次扫描 已出货 2 票"_s);
    EXPECT_EQ(form.Marks(), u"管理员 管理员 小王 未审核 未审核"_s);
    // From any control what is scanned gets into the text box.
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), u"Cmb"_s);
    form.Scan(u"W4"_s);
    form.Enter(u"GD"_s);
    for (const QString& at : {u"Txt(0)"_s, u"GD"_s}) {
        form.Enter(at);
        AltKey(u'1');
        EXPECT_EQ(form.Box(0), u""_s) << "no command, and no part of a number";
    }
    form.Frame().SetMenuVisible(u"Menu_b"_s, false);
    form.Scan(u"W5"_s);
    EXPECT_EQ(form.Lines().value(0), u"10:01:00|W5||||未出货|您没有速递单据的权限"_s);
    EXPECT_EQ(form.Marks(), u"管理员 管理员 小王 管理员 未审核"_s);
}

TEST(ScanRelease, ShowsWhatCouldNotBeStoredAndEndsOnlyWithALostCommand) {
    ReleaseForm form(u"ScanRelease"_s);
    const auto fail = [](const QString& how) {
        Db->ExecuteEngine(u"drop trigger if exists broken"_s);
        Db->ExecuteEngine(
            u"create trigger broken before update on B01 begin select raise(%1,'broken'); end"_s.arg(how));
        Db->CloseGroup();
    };
    fail(u"abort"_s);
    form.Scan(u"W1"_s);
    dao::whenBusy().handle = [](const auto&) { throw sys::CommandGivenUp{}; };
    {
        Connection other(form.File());
        other.Run(u"begin immediate"_s);
        form.Scan(u"W1"_s);
    }
    dao::whenBusy() = {};
    QStringList lines = {u"10:00:00|W1||||未出货|数据文件正忙，没有出货"_s,
                         u"10:00:00|W1||||未出货|出错，没有出货：broken"_s};
    EXPECT_EQ(form.Lines(), lines);
    fail(u"rollback"_s);
    form.EndsWith(u"broken"_s);
    form.Scan(u"W1"_s);
    EXPECT_EQ(form.Lines(), QStringList{u"10:00:00|W1||||未出货|出错，没有出货"_s} + lines);
    EXPECT_EQ(form.sounds, 3);
}

TEST(ScanRelease, PrintsEachWaybillOnceAsItIsByThen) {
    ReleaseForm form(u"ScanRelease"_s);
    schema::MakeLayout(AppFolder + u"prntc011.rpt"_s);
    CanSeeFigures = false;
    const auto printed = [&] {
        AltKey(u'P');
        Press(Qt::Key_Return);
        if (form.Frame().Front()->objectName() == u"Prnt") AltKey(u'R');
        return form.Rows(u"select F1 from PRNTC01 order by rowid"_s).join(u' ');
    };
    for (const auto& number : {u"W1"_s, u"W2"_s, u"W4"_s}) form.Scan(number);
    form.Execute(u"update B01 set F604='未出货' where F1 in ('W1','W2')"_s);
    form.Scan(u"w1"_s);
    form.Execute(u"update B01 set F202='X9' where F1='W4'"_s);
    form.Frame().SetMenuVisible(u"Menu_C"_s, false);
    form.script.Box(u"您没有统计报表的权限!"_s, Title);
    EXPECT_EQ(printed(), QString());
    form.Frame().SetMenuVisible(u"Menu_C"_s, true);
    EXPECT_EQ(printed(), u"W1 W4"_s);
    auto& channels = form.At<controls::ComboBox>(u"Cmb"_s);
    QStringList items;
    for (int item = 0; item < channels.ListCount(); ++item) items += channels.List(item);
    EXPECT_EQ(items, (QStringList{u"全部渠道"_s, u"环洋"_s, u"无渠道"_s, u"无名渠道"_s}));
    channels.SetListIndex(1);
    EXPECT_EQ(printed(), u"W1"_s);
    channels.SetListIndex(3);
    EXPECT_EQ(printed(), u"W4"_s);
}

TEST(Unreleased, ListsTheOldestFirstWithWhatIsMissingAndOpensTheWaybill) {
    ReleaseForm form(u"Unreleased"_s);
    const QStringList week = {u"W2|2024-03-08|华兴|Acme W2||3|未出货|渠道、区域、成本"_s,
                              u"W5|2024-03-11|华兴|Acme W5||3|未审核|渠道、成本"_s,
                              u"W1|2024-03-14|华兴|Acme W1|环洋|3|未审核|"_s};
    EXPECT_EQ(form.Lines(), week);
    EXPECT_EQ(form.Status(), u"未出货、未审核：共 3 条记录 当前为第 1 条"_s);
    for (const auto& [days, lines] : {std::pair(u"1"_s, week.last(1)), {u"x"_s, week.last(1)}}) {
        form.SetBox(0, days);
        if (days == u"x") form.script.Box(u"请输入最近天数!"_s, Title);
        form.Push(u"Cmd"_s);
        EXPECT_EQ(form.Lines(), lines);
    }
    form.SetBox(0, u"8"_s);
    CanSeeFigures = false;
    form.Push(u"Cmd"_s);
    EXPECT_EQ(form.Lines().value(1).section(u'|', -1), u"渠道"_s);
    form.Enter(u"GD"_s);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Frame().Front()->objectName(), u"B01"_s);
    EXPECT_EQ(form.Box(Number), u"W2"_s);
    AltKey(u'C');
    AltKey(u'R');
    EXPECT_EQ(form.Frame().Front()->objectName(), u"Unreleased"_s);
    EXPECT_EQ(form.Lines().size(), 3) << "what was released meanwhile is gone";
    form.Execute(u"update B01 set F604='a'"_s);
    form.Push(u"Cmd"_s);
    EXPECT_EQ(form.Status(), u"未出货、未审核：无单据信息"_s);
    form.Enter(u"GD"_s);
    Press(Qt::Key_Return);  // on the blank line
    form.script.Box(u"无数据可打印"_s, Title);
    AltKey(u'P');
}

}  // namespace
}  // namespace tests
