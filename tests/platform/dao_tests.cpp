// The data file: what opens and what doesn't, what a command leaves behind, how rows are read and written.
#include "platform/dao/busy.h"
#include "platform/dao/database.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "tests/support/data_file.h"
#include "tests/support/failing_vfs.h"
#include "tests/support/files.h"
#include "tests/support/rights.h"
#include "tests/support/script.h"

#include <QFile>

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList kTables = {
    u"create table M04 (F1 TEXT COLLATE NOCASE, F2 TEXT COLLATE NOCASE, A30 BOOLEAN,"
    " D0 DOUBLE check(typeof(D0) not in ('text','blob')))"_s,
    u"create table TB1 (SN DOUBLE, F3 TEXT COLLATE NOCASE, YF DOUBLE default 0, FK DOUBLE default 0,"
    " QC DOUBLE, QM DOUBLE)"_s,
};

std::unique_ptr<dao::Database> Open(const tests::DataFile& file, const QString& vfs = {}) {
    return dao::Database::Open(file.Path(), file.Connect(), vfs);
}

/// What opening says; "" if it succeeds.
QString OpeningSays(const QString& path, const QString& connect, const QString& vfs = {}) {
    try {
        dao::Database::Open(path, connect, vfs);
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.Statement(), path);
        return error.Text();
    }
    return {};
}

TEST(Opening, RefusesWhatIsNoWorkingDataFile) {
    const tests::DataFile file(kTables);
    const QString other = file.Folder() + u"/other.dat"_s;
    const auto notOurs = [](const QString& path) {
        return u"数据文件已加密，或者不是本系统的数据文件：\r"_s + path;
    };
    EXPECT_EQ(OpeningSays(file.Path(), file.Connect()), QString());
    for (const QString& wrong : {u";PWD=qxr7305"_s, u";PWD="_s, u""_s})
        EXPECT_EQ(OpeningSays(file.Path(), wrong), notOurs(file.Path())) << wrong.toStdString();
    EXPECT_EQ(OpeningSays(file.Folder() + u"/none.dat"_s, file.Connect()),
              u"无法打开数据文件：\r"_s + file.Folder() + u"/none.dat"_s);
    EXPECT_FALSE(QFile::exists(file.Folder() + u"/none.dat"_s));

    const QByteArray whole = tests::Bytes(file.Path());
    QByteArray spoilt = whole;
    spoilt[2000] = static_cast<char>(spoilt[2000] ^ 1);
    const struct {
        QByteArray content;
        QString connect, says;
    } others[] = {{{}, file.Connect(), notOurs(other)},
                  {{}, u""_s, notOurs(other)},
                  {QByteArray(8192, 'x'), file.Connect(), notOurs(other)},
                  {QByteArray(8192, 'x'), u""_s, notOurs(other)},
                  {whole.left(whole.size() - 4096), file.Connect(), u"数据文件已损坏：\r"_s + other},
                  {spoilt, file.Connect(), notOurs(other)}};
    for (const auto& row : others) {
        tests::Write(other, row.content);
        EXPECT_EQ(OpeningSays(other, row.connect), row.says) << row.content.size();
    }
}

TEST(Opening, RefusesAReadOnlyAndALockedFile) {
    tests::FailingStorage storage;
    const tests::DataFile file(kTables);
    for (int opening = 1; opening <= 2; ++opening) {  // as made, and as the program leaves it
        storage.RefuseWriting();
        EXPECT_EQ(OpeningSays(file.Path(), file.Connect(), u"failing"_s),
                  u"数据文件是只读的，不能写入：\r"_s + file.Path());
        storage.Heal();
        EXPECT_EQ(OpeningSays(file.Path(), file.Connect(), u"failing"_s), QString());
    }
    tests::Connection holder(file.Path());
    holder.Run(u"pragma journal_mode=delete"_s);
    holder.Run(u"begin immediate"_s);
    EXPECT_EQ(OpeningSays(file.Path(), file.Connect(), u"failing"_s),
              u"数据文件正被其他程序使用：\r"_s + file.Path());
    holder.Run(u"rollback"_s);
    EXPECT_EQ(OpeningSays(file.Path(), file.Connect()), QString());
}

TEST(Opening, NarrowsTheRightsToTheFileAndToAllBesideIt) {
    const tests::DataFile file(kTables);
    const QString link = file.Folder() + u"/link.dat"_s;
    ASSERT_TRUE(QFile::link(file.Path(), link));
    tests::Write(file.Path() + u"-wal"_s, {});
    for (const QString& side : {u""_s, u"-wal"_s}) tests::OpenToAll(file.Path() + side);
    const auto db = dao::Database::Open(link, file.Connect());
    db->Execute(u"insert into M04 (F1) values ('a')"_s);
    db->CloseGroup();
    for (const QString& side : {u""_s, u"-wal"_s, u"-shm"_s})
        EXPECT_EQ(tests::RightsOf(file.Path() + side), 0600) << side.toStdString();
}

/// Runs a command that another program keeps from writing; handle is what the program does about it.
class TwoPrograms : public testing::Test {
  protected:
    TwoPrograms() : db_(Open(file_)), other_(file_.Path()) {
        dao::whenBusy().patience = 0;
        other_.Run(u"begin immediate"_s);
    }
    ~TwoPrograms() override { dao::whenBusy() = {}; }
    void Add(const QString& code) { db_->Execute(u"insert into M04 (F1) values ('"_s + code + u"')"_s); }
    QStringList Codes() const { return file_.Rows(u"select F1 from M04 order by F1"_s); }

    const tests::DataFile file_{kTables};
    std::unique_ptr<dao::Database> db_;
    tests::Connection other_;
};

TEST_F(TwoPrograms, OpenReadAndCloseTheFileWhileOneOfThemWrites) {
    db_->Close();
    const auto second = Open(file_);
    EXPECT_TRUE(second->OpenRecordset(u"select F1 from M04"_s).Eof());
    EXPECT_NO_THROW(second->Close());
    other_.Run(u"insert into M04 (F1) values ('other')"_s);
    other_.Run(u"commit"_s);
    EXPECT_EQ(Codes(), QStringList{u"other"_s});
}

TEST_F(TwoPrograms, OneKnowsWhetherItIsAlone) {
    other_.Run(u"rollback"_s);
    EXPECT_FALSE(db_->IsAlone());
    Add(u"a"_s);  // it goes on as before
    db_->CloseGroup();
    const auto second = Open(file_);
    second->Close();
    EXPECT_FALSE(db_->IsAlone());

    other_.Close();
    Add(u"b"_s);
    EXPECT_TRUE(db_->IsAlone());
    EXPECT_EQ(file_.Files(), QStringList{u"test.dat"_s}) << "all of it is in the one file";
    EXPECT_EQ(Codes(), (QStringList{u"a"_s, u"b"_s}));
}

TEST(File, CannotBeReadWithoutThePassword) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    db->Execute(u"insert into M04 (F1,F2) values ('Geheimnis','机密内容')"_s);
    db->CloseGroup();
    for (const QString& name : file.Files()) {
        if (name.endsWith(u"-shm"_s)) continue;  // page numbers and locks
        const QByteArray bytes = tests::Bytes(file.Folder() + u'/' + name);
        EXPECT_FALSE(bytes.contains("SQLite format")) << name.toStdString();
        EXPECT_FALSE(bytes.contains("Geheimnis")) << name.toStdString();
        EXPECT_FALSE(bytes.contains("机密")) << name.toStdString();
    }
}

TEST(Group, LastsUntilTheCommandEndsAndKeepsWhatRanBeforeAFailure) {
    const tests::DataFile file(kTables);
    const QString codes = u"select F1 from M04 order by F1"_s;
    auto db = Open(file);
    db->OpenRecordset(u"select * from M04"_s);
    EXPECT_FALSE(db->InGroup());
    sys::Guarded([&] {
        db->Execute(u"insert into M04 (F1) values ('a')"_s);
        EXPECT_TRUE(db->InGroup());
        EXPECT_EQ(file.Rows(codes), QStringList());
        EXPECT_THROW(db->Execute(u"insert into M04 (F1,D0) values ('b','x')"_s), DatabaseError);
        EXPECT_THROW(db->Execute(u"insert into M04 (F1) values ('O'Neil')"_s), DatabaseError);
        db->Execute(u"insert into M04 (F1) values ('c')"_s);
        EXPECT_EQ(db->OpenRecordset(u"select F1 from M04 where F1='A'"_s).Fields(0).Text(), u"a"_s);
    });
    EXPECT_FALSE(db->InGroup());
    EXPECT_EQ(file.Rows(codes), (QStringList{u"a"_s, u"c"_s}));

    // A message box waits, so what was written before it is kept first.
    tests::Script script;
    script.Box(u"好"_s, u"提示"_s);
    sys::Guarded([&] {
        db->Execute(u"delete from M04 where F1='a'"_s);
        sys::Inform(u"好"_s, u"提示"_s);
        EXPECT_EQ(file.Rows(codes), QStringList{u"c"_s});
    });
}

TEST(Group, IsKeptWhenAFailureEndsTheProgram) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    tests::Script script;
    script.BoxContaining(u"syntax error"_s);
    script.End(1);
    sys::Guarded([&] {
        db->Execute(u"insert into M04 (F1) values ('a')"_s);
        db->Execute(u"insert into M04 (F1) values ()"_s);
    });
    sys::ClearEnd();
    // The end of the program brought everything into the one file: a copy of it alone is complete.
    const QString copy = file.Folder() + u"/copy.dat"_s;
    ASSERT_TRUE(QFile::copy(file.Path(), copy));
    EXPECT_EQ(
        dao::Database::Open(copy, file.Connect())->OpenRecordset(u"select F1 from M04"_s).Fields(0).Text(),
        u"a"_s);
}

TEST(Close, LeavesOneFileAndAnswersNothingMore) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    db->Execute(u"insert into TB1 (SN) values (1)"_s);
    auto snapshot = db->OpenRecordset(u"select SN from TB1"_s);
    auto dynaset = db->OpenRecordset(u"select SN,QC from TB1"_s, dao::RecordsetType::Dynaset);
    dynaset.Edit();
    dynaset.SetValue(u"QC", 5);
    dynaset.Update();
    dynaset.Edit();
    dynaset.SetValue(u"QC", 6);
    db->Close();
    EXPECT_EQ(file.Files(), QStringList{u"test.dat"_s});
    EXPECT_EQ(file.Rows(u"select SN,QC from TB1"_s), QStringList{u"1.0|5.0"_s});
    EXPECT_THROW(db->Execute(u"delete from TB1"_s), DatabaseError);
    EXPECT_THROW(db->OpenRecordset(u"select * from TB1"_s), DatabaseError);
    EXPECT_THROW(dynaset.Update(), DatabaseError);
    EXPECT_EQ(snapshot.Fields(0).Text(), u"1"_s);
    EXPECT_NO_THROW(db->Close());
    EXPECT_NO_THROW(sys::CloseCommand());
}

TEST(Rows, AreReadAsTheFormsShowThem) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    db->Execute(u"insert into M04 (F1,F2,A30,D0) values ('5.0','甲',1,5.0)"_s);
    db->Execute(u"insert into M04 (F1,F2,A30,D0) values ('12kg','',True,-0.25)"_s);
    db->Execute(u"insert into M04 (F1,F2,A30,D0) values (null,'乙',false,1E+15)"_s);
    db->Execute(u"insert into M04 (F1,F2) values ('x','乙')"_s);
    auto rows = db->OpenRecordset(u"select F1,M04.F2 as 名称,A30,D0,D0*2,1 from M04"_s);
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.FieldCount(), 6);
    const QStringList expected = {u"5.0|甲|-1|5|10|1"_s, u"12kg||-1|-0.25|-0.5|1"_s, u"|乙|0|1E+15|2E+15|1"_s,
                                  u"x|乙||||1"_s};
    for (const QString& line : expected) {
        ASSERT_FALSE(rows.Eof());
        QStringList fields;
        for (int i = 0; i < rows.FieldCount(); ++i) fields << rows.Fields(i).Text();
        EXPECT_EQ(fields.join(u'|'), line);
        rows.MoveNext();
    }
    EXPECT_TRUE(rows.Eof());
    EXPECT_THROW(rows.MoveNext(), RuntimeError);
    EXPECT_THROW(rows.Fields(0).Text(), RuntimeError);
    rows.MoveLast();
    EXPECT_EQ(rows.RecordCount(), 4);
    EXPECT_TRUE(rows.Fields(u"a30").IsNull());
    rows.MoveFirst();
    EXPECT_EQ(rows.RecordCount(), 4);
    EXPECT_EQ(rows.Fields(u"f1").Number(), 5);
    EXPECT_EQ(rows.Fields(u"名称").Number(), 0);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields(0).Number(), 12);
    EXPECT_EQ(rows.Fields(2).Number(), -1);
    const std::function<void()> missing[] = {[&] { rows.Fields(6); }, [&] { rows.Fields(-1); },
                                             [&] { rows.Fields(u"F9"); }};
    for (const auto& read : missing) {
        try {
            read();
            ADD_FAILURE();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Text(), u"在此集合中找不到该项目"_s);
        }
    }
    EXPECT_THROW(rows.Edit(), RuntimeError);
    rows.Close();
    EXPECT_THROW(rows.Eof(), RuntimeError);

    auto empty = db->OpenRecordset(u"select * from M04 where F1='none'"_s);
    EXPECT_TRUE(empty.Eof());
    EXPECT_EQ(empty.RecordCount(), 0);
    EXPECT_THROW(empty.MoveFirst(), RuntimeError);
    EXPECT_THROW(empty.MoveLast(), RuntimeError);
}

TEST(ForwardOnly, ReadsOnceWhatASnapshotReads) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    for (const QString& values :
         {u"'5.0','甲',True,5.0"_s, u"'','乙',false,1E+15"_s, u"null,null,null,-0.25"_s})
        db->Execute(u"insert into M04 (F1,F2,A30,D0) values ("_s + values + u')');
    const QString all = u"select F1,F2,A30,D0,1 from M04"_s;
    auto copied = db->OpenRecordset(all);
    auto rows = db->OpenRecordset(all, dao::RecordsetType::ForwardOnly);
    for (; !copied.Eof(); copied.MoveNext(), rows.MoveNext()) {
        ASSERT_FALSE(rows.Eof());
        for (int i = 0; i < copied.FieldCount(); ++i) {
            EXPECT_EQ(rows.Fields(i).Text(), copied.Fields(i).Text());
            EXPECT_EQ(rows.Fields(i).IsNull(), copied.Fields(i).IsNull());
        }
        EXPECT_EQ(rows.Fields(u"D0").Number(), copied.Fields(u"D0").Number());
    }
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.FieldName(1), u"F2"_s);
    EXPECT_THROW(rows.MoveNext(), RuntimeError);
    EXPECT_THROW(rows.Fields(0).Text(), RuntimeError);

    auto again = db->OpenRecordset(all, dao::RecordsetType::ForwardOnly);
    EXPECT_EQ(again.Fields(0).Text(), u"5.0"_s);
    EXPECT_THROW(again.MoveFirst(), RuntimeError);
    EXPECT_THROW(again.MoveLast(), RuntimeError);
    EXPECT_THROW(again.RecordCount(), RuntimeError);
    EXPECT_THROW(again.Edit(), RuntimeError);
    EXPECT_TRUE(db->OpenRecordset(all + u" where F1='none'"_s, dao::RecordsetType::ForwardOnly).Eof());
}

TEST(ForwardOnly, FailsWhereItsRowsEndBeforeTheirTime) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    for (const QString& day : {u"2024-03-01"_s, u"no date"_s, u"2024-03-03"_s})
        db->Execute(u"insert into M04 (F1) values ('%1')"_s.arg(day));
    auto failing =
        db->OpenRecordset(u"select datediff('d',F1,F1) from M04"_s, dao::RecordsetType::ForwardOnly);
    EXPECT_EQ(failing.Fields(0).Number(), 0);
    EXPECT_THROW(failing.MoveNext(), DatabaseError);
    EXPECT_TRUE(failing.Eof());

    auto closed = db->OpenRecordset(u"select F1 from M04"_s, dao::RecordsetType::ForwardOnly);
    auto reopened = db->OpenRecordset(u"select F1 from M04"_s, dao::RecordsetType::ForwardOnly);
    db->WhileClosed([&] {
        EXPECT_THROW(closed.Fields(0).Text(), DatabaseError);
        EXPECT_THROW(closed.MoveNext(), DatabaseError);
    });
    EXPECT_THROW(reopened.MoveNext(), DatabaseError);
    auto ended = db->OpenRecordset(u"select F1 from M04"_s, dao::RecordsetType::ForwardOnly);
    EXPECT_TRUE(db->IsAlone());
    EXPECT_THROW(ended.MoveNext(), DatabaseError);
    db->Close();
    db = Open(file);
    EXPECT_EQ(db->OpenRecordset(u"select F1 from M04"_s).Fields(0).Text(), u"2024-03-01"_s);
    db->Close();
    EXPECT_EQ(file.Files(), QStringList{u"test.dat"_s});
}

/// Statements are kept ready; that must show in nothing but the time.
TEST(Statements, ThatComeAgainAreAsNew) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    const QString add = u"insert into TB1 (SN,F3,YF) values (1,'甲',2)"_s;
    const QString all = u"select YF,QM from TB1"_s;
    EXPECT_TRUE(db->OpenRecordset(all).Eof());
    for (int i = 0; i < 3; ++i) db->Execute(add);
    auto snapshot = db->OpenRecordset(all);
    auto dynaset = db->OpenRecordset(all, dao::RecordsetType::Dynaset);
    auto another = db->OpenRecordset(all, dao::RecordsetType::Dynaset);
    EXPECT_THROW(snapshot.Edit(), RuntimeError);
    EXPECT_EQ(dynaset.FieldCount(), snapshot.FieldCount());
    for (double value = 1; !dynaset.Eof(); dynaset.MoveNext(), another.MoveNext(), ++value)
        for (dao::Recordset* rows : {&dynaset, &another}) {  // both write with the same words
            rows->Edit();
            rows->SetValue(u"QM", rows == &dynaset ? value : value * 10);
            rows->Update();
        }
    for (int i = 0; i < 200; ++i) db->OpenRecordset(u"select SN from TB1 where SN=%1"_s.arg(i));
    auto now = db->OpenRecordset(all);
    for (const double value : {10.0, 20.0, 30.0}) {
        EXPECT_TRUE(snapshot.Fields(1).IsNull());
        EXPECT_EQ(now.Fields(1).Number(), value);
        snapshot.MoveNext();
        now.MoveNext();
    }
    // One that failed fails again for as long as there is a reason, and no longer.
    const QString copy = u"insert into M04 (F1,D0) select F3,F3 from TB1"_s;
    EXPECT_THROW(db->Execute(copy), DatabaseError);
    EXPECT_THROW(db->Execute(copy), DatabaseError);
    db->Execute(u"update TB1 set F3=null"_s);
    db->Execute(copy);
    EXPECT_THROW(db->Execute(all), DatabaseError);
    EXPECT_THROW(db->OpenRecordset(add), DatabaseError);
    db->Close();
    EXPECT_THROW(db->Execute(add), DatabaseError);
    EXPECT_THROW(db->OpenRecordset(all), DatabaseError);
}

TEST(Statements, InsertWhateverValuesTheyHold) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    const struct {
        QString values, text, number;
    } rows[] = {
        {u"'A''s',-2"_s, u"A's"_s, u"-2"_s},
        {u"\"it's\",.5"_s, u"it's"_s, u"0.5"_s},
        {u"'',5."_s, u""_s, u"5"_s},
        {u"'张 ?',1E+3"_s, u"张 ?"_s, u"1000"_s},
        {u"007,9223372036854775807"_s, u"7"_s, u"9.22337203685478E+18"_s},
        {u"1.50,99999999999999999999"_s, u"1.5"_s, u"1E+20"_s},
        {u"null,1+2*3"_s, u""_s, u"7"_s},
        {u"'12kg', null"_s, u"12kg"_s, u""_s},
    };
    for (const auto& row : rows) {
        db->Execute(u"insert into M04 (F1,D0) values ("_s + row.values + u')');
        auto last = db->OpenRecordset(u"select F1,D0 from M04"_s);
        EXPECT_EQ(last.Fields(0).Text(), row.text) << row.values.toStdString();
        EXPECT_EQ(last.Fields(1).Text(), row.number) << row.values.toStdString();
        db->Execute(u"delete from M04"_s);
    }
    for (const QString& wrong :
         {u"'a','12kg'"_s, u"'a','12'"_s, u"'a'"_s, u"'a',1,2"_s, u"'a',"_s, u"'a' 1"_s, u"'a',b"_s}) {
        const QString statement = u"insert into M04 (F1,D0) values ("_s + wrong + u')';
        try {
            db->Execute(statement);
            ADD_FAILURE() << "went through: " << wrong.toStdString();
        } catch (const DatabaseError& error) {
            EXPECT_EQ(error.Statement(), statement);
        }
    }
    EXPECT_TRUE(db->OpenRecordset(u"select F1 from M04"_s).Eof());
}

TEST(Dynaset, WritesRowsBackInTheOrderOfTheJournal) {
    const tests::DataFile file(kTables);
    auto db = Open(file);
    db->Execute(u"insert into TB1 (SN,F3,YF) values (30,'甲',5)"_s);
    db->Execute(u"insert into TB1 (SN,F3,FK) values (20.5,'甲',2.5)"_s);
    db->Execute(u"insert into TB1 (SN,F3,YF) values (0,'甲',100)"_s);
    db->Execute(u"insert into TB1 (SN,F3,YF) values (25,'乙',100)"_s);
    auto rows =
        db->OpenRecordset(u"select QC,YF,FK,QM from TB1 where SN<>0 AND  SN>=1 and F3='甲' ORDER BY SN"_s,
                          dao::RecordsetType::Dynaset);
    EXPECT_EQ(rows.FieldCount(), 4);
    EXPECT_THROW(rows.SetValue(u"QC", 1), RuntimeError);
    EXPECT_THROW(rows.Update(), RuntimeError);
    double running = 1;
    for (; !rows.Eof(); rows.MoveNext()) {
        rows.Edit();
        rows.SetValue(u"QC", running);
        EXPECT_EQ(rows.Fields(u"QC").Number(), running);
        running += rows.Fields(u"YF").Number() - rows.Fields(u"FK").Number();
        rows.SetValue(u"QM", running);
        rows.Update();
        EXPECT_EQ(rows.Fields(u"QM").Number(), running);
    }
    EXPECT_EQ(running, 3.5);
    rows.MoveFirst();
    rows.Edit();
    EXPECT_THROW(rows.SetValue(u"QC", HUGE_VAL), RuntimeError) << "the engine would store it";
    EXPECT_THROW(rows.SetValue(u"QC", std::nan("")), RuntimeError) << "and would take this for null";
    // An edit that is not finished leaves nothing, and a row that is gone says so.
    rows.MoveFirst();
    rows.Edit();
    rows.SetValue(u"QC", 99);
    rows.MoveNext();
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields(u"QC").Number(), 1);
    db->Execute(u"delete from TB1 where SN=20.5"_s);
    rows.Edit();
    rows.SetValue(u"QC", 99);
    EXPECT_THROW(rows.Update(), DatabaseError);
    rows.Close();
    db->CloseGroup();
    EXPECT_EQ(file.Rows(u"select SN,QC,QM from TB1"_s),
              (QStringList{u"30.0|-1.5|3.5"_s, u"0.0|<null>|<null>"_s, u"25.0|<null>|<null>"_s}));
    auto sums = db->OpenRecordset(u"select sum(YF) as QC from TB1"_s, dao::RecordsetType::Dynaset);
    EXPECT_THROW(sums.Edit(), RuntimeError);
}

TEST(Storage, LosesTheWholeCommandWhenTheDiskFillsUpInItsMiddle) {
    // More than the page cache holds, so that the engine has to write before the command's end: by many small
    // statements and by one that changes many rows.
    const QString page(900'000, u'x');
    const QString large = u"insert into M04 (F1,F2) values ('big','"_s + page + u"')"_s;
    const QString changed = u"update M04 set D0=1,F2='"_s + page + u"'"_s;
    for (const QString& statement : {large, changed}) {
        tests::FailingStorage storage;
        const tests::DataFile file(kTables);
        auto db = Open(file, u"failing"_s);
        for (int i = 0; i < 90; ++i) db->Execute(u"insert into M04 (F1) values ('before')"_s);
        db->CloseGroup();
        db->Execute(u"insert into M04 (F1) values ('a')"_s);
        storage.FailAt(1, tests::StorageFault::DiskFull, true);
        try {
            for (int i = 0; i < 90; ++i) db->Execute(statement);
            ADD_FAILURE();
        } catch (const DatabaseError& error) {
            EXPECT_TRUE(error.GroupLost());
            EXPECT_EQ(error.Text(), u"磁盘已满，无法写入数据文件：\r"_s + file.Path());
        }
        storage.Heal();
        // Whoever swallowed the error must not go on and keep half of a command.
        EXPECT_THROW(db->Execute(u"insert into M04 (F1) values ('c')"_s), DatabaseError);
        EXPECT_THROW(db->OpenRecordset(u"select * from M04"_s), DatabaseError);
        EXPECT_THROW(sys::CloseCommand(), DatabaseError);
        // The next command is a new one.
        db->Execute(u"insert into M04 (F1) values ('d')"_s);
        db->Close();
        EXPECT_EQ(file.Rows(u"select F1,count(*),count(F2) from M04 group by F1"_s),
                  (QStringList{u"before|90|0"_s, u"d|1|0"_s}));
    }
}

}  // namespace
