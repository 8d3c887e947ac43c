// The copies that the program makes by itself: which are kept, what a copy has to pass, what is reported.
#include "admin/daily_copies.h"
#include "platform/dao/engine.h"
#include "platform/system/dated_copies.h"
#include "schema/names.h"
#include "tests/support/company.h"
#include "tests/support/files.h"
#include "tests/support/rights.h"
#include "tests/support/script.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace tests {
namespace {

using namespace Qt::StringLiterals;
using admin::DailyCopies;

QString Named(const QDateTime& made) {
    return u"/b/tessik.每日."_s + made.toString(u"yyyy-MM-dd_HH-mm-ss"_s) + u".dat"_s;
}

TEST(SpareCopies, LeaveTheLastOfFourteenDaysAndOfTwelveMonths) {
    // Two a day for 500 days, each day what is spare goes, as the program does it.
    QStringList copies;
    const QDateTime first(QDate(2023, 1, 1), QTime(9, 0));
    for (int day = 0; day < 500; ++day) {
        for (const int hours : {0, 8}) {
            copies += Named(first.addDays(day).addSecs(hours * 3600));
            for (const QString& spare : admin::SpareCopies(copies)) copies.removeAll(spare);
        }
    }
    QStringList expected;
    for (int month = 6; month <= 12; ++month)
        expected += Named(QDateTime(QDate(2023, month, 1).addMonths(1).addDays(-1), QTime(17, 0)));
    for (int month = 1; month <= 4; ++month)
        expected += Named(QDateTime(QDate(2024, month, 1).addMonths(1).addDays(-1), QTime(17, 0)));
    for (int day = 1; day <= 14; ++day) expected += Named(QDateTime(QDate(2024, 5, day), QTime(17, 0)));
    EXPECT_EQ(copies, expected);
    EXPECT_EQ(admin::SpareCopies({}), QStringList());
}

class Daily : public testing::Test {
  protected:
    Daily() {
        company_.Run({u"insert into B01 (F1) VALUES ('W1')"_s, u"insert into B01 (F1) VALUES ('W2')"_s,
                      u"insert into TB1 (F3,YF) VALUES ('甲',0.1)"_s,
                      u"insert into TB1 (F3,YF) VALUES ('乙',0.2)"_s});
        company_.Db().Close();
        sys::seams().freeBytes = [this](const QString&) { return free_; };
    }
    DailyCopies Copies() const { return {company_.File(), schema::kConnect.toString()}; }
    QString Folder() const { return company_.Folder() + u"backup/"_s; }
    static QStringList Names(const QString& folder) {
        return QDir(folder).entryList({u"tessik*"_s}, QDir::Files | QDir::Hidden, QDir::Name);
    }
    static QString Emitted(const QStringList& faults) { return faults.join(u'|'); }

    Script script_;
    Company company_;
    qint64 free_ = 1 << 30;
};

TEST_F(Daily, AreWholeListedAndOnceADay) {
    EXPECT_EQ(Emitted(Copies().Make()), u""_s);
    script_.SetNow(QDateTime(QDate(2024, 3, 15), QTime(18, 0)));
    EXPECT_EQ(Emitted(Copies().Make()), u""_s);
    script_.SetNow(QDateTime(QDate(2024, 3, 16), QTime(18, 0)));
    EXPECT_EQ(Emitted(Copies().Make()), u""_s);
    EXPECT_EQ(Names(Folder()), (QStringList{u"tessik.每日.2024-03-15_18-00-00.dat"_s,
                                            u"tessik.每日.2024-03-16_18-00-00.dat"_s}));
    const auto list = Copies().List();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].made, QDateTime(QDate(2024, 3, 16), QTime(18, 0)));
    EXPECT_EQ(list[0].waybills, 2);
    EXPECT_EQ(Bytes(list[0].path), Bytes(company_.File()));
    EXPECT_EQ(RightsOf(list[0].path), 0600);
    EXPECT_EQ(RightsOf(Folder()), 0700);

    QFile::remove(Folder() + u"copies.json"_s);
    EXPECT_EQ(Copies().List().size(), 2U);
    EXPECT_EQ(Copies().List()[0].waybills, -1);
    Write(Folder() + u"copies.json"_s, "{ broken");
    EXPECT_EQ(Emitted(Copies().Make()), u""_s) << "a broken list costs no copy";
}

TEST_F(Daily, ThatFailTheirCheckOrFindNoSpaceCostNoOlderOne) {
    EXPECT_EQ(Emitted(Copies().Make()), u""_s);
    const QStringList before = Names(Folder());
    script_.SetNow(QDateTime(QDate(2024, 3, 15), QTime(18, 0)));
    const QString place = QDir::cleanPath(Folder()) + u"："_s;

    free_ = QFileInfo(company_.File()).size();
    EXPECT_EQ(Emitted(Copies().Make()), place + u"磁盘空间不足"_s);
    free_ = 1 << 30;

    const auto real = sys::seams().copyFile;
    sys::seams().copyFile = [&](const QString& from, const QString& to) {
        const QString words = real(from, to);
        dao::Run(dao::OpenEngine(to, schema::kPassword).get(), "delete from B01 where F1='W2'");
        return words;
    };
    EXPECT_EQ(Emitted(Copies().Make()), place + u"副本与数据文件不一致"_s);
    sys::seams().copyFile = [&](const QString& from, const QString& to) {
        const QString words = real(from, to);
        QFile file(to);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() - 2000));
        file.write("torn");
        return words;
    };
    EXPECT_TRUE(Emitted(Copies().Make()).startsWith(place + u"副本已损坏"_s));
    sys::seams().copyFile = [](const QString&, const QString&) { return u"没有权限"_s; };
    EXPECT_EQ(Emitted(Copies().Make()), place + u"没有权限"_s);
    EXPECT_EQ(Names(Folder()), before);

    Write(company_.File(), "no database");
    EXPECT_TRUE(Emitted(Copies().Make()).startsWith(u"数据文件："_s));
    EXPECT_EQ(Names(Folder()), before);
}

TEST_F(Daily, GoToASecondFolderWhichIsReportedWhenItIsMissing) {
    const QTemporaryDir stick;
    EXPECT_EQ(Copies().SetSecondFolder(stick.path()), QString());
    EXPECT_EQ(Emitted(Copies().Make()), u""_s);
    EXPECT_EQ(Names(stick.path()), Names(Folder()));
    EXPECT_EQ(Copies().SecondFolder(), stick.path()) << "the list file keeps it";

    QDir(stick.path()).removeRecursively();
    script_.SetNow(QDateTime(QDate(2024, 3, 16), QTime(18, 0)));
    EXPECT_EQ(Emitted(Copies().Make()), u"第二备份位置 "_s + stick.path() + u"：文件夹不存在"_s);
    EXPECT_EQ(Names(Folder()).size(), 2) << "the first one is made all the same";
    EXPECT_EQ(Copies().SetSecondFolder({}), QString());
    EXPECT_EQ(Emitted(Copies().Make()), u""_s);
}

}  // namespace
}  // namespace tests
