// Files as a whole: who may read a copy, what a failing copy leaves, which dated copies are kept.
#include "platform/system/dated_copies.h"
#include "platform/system/files.h"
#include "tests/support/files.h"
#include "tests/support/full_disk.h"
#include "tests/support/rights.h"
#include "tests/support/script.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class Copies : public testing::Test {
  protected:
    Copies() { tests::Write(of_.file, "today"); }

    QStringList Names() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    QString Keep() const { return QFileInfo(sys::KeepDatedCopy(of_).path).fileName(); }

    const QTemporaryDir folder_;
    tests::Script script_;
    const sys::DatedCopies of_{
        .file = folder_.filePath(u"data.dat"_s), .folder = folder_.path(), .label = u"旧"_s, .most = 3};
};

TEST_F(Copies, AreReadableByTheirOwnerAloneAndReplaceWhatIsThere) {
    tests::OpenToAll(of_.file);
    const QString target = folder_.filePath(u"copy.dat"_s);
    EXPECT_EQ(sys::CopyWhole(of_.file, target), QString());
    EXPECT_EQ(tests::RightsOf(target), 0600);
    tests::OpenToAll(target);
    tests::Write(of_.file, "tomorrow");
    EXPECT_EQ(sys::CopyWhole(of_.file, target), QString());
    EXPECT_EQ(tests::RightsOf(target), 0600);
    EXPECT_EQ(tests::Bytes(target), "tomorrow");
    {
        const tests::FullDisk full(3);
        EXPECT_EQ(sys::CopyWhole(of_.file, target), u"File too large"_s);
    }
    EXPECT_EQ(sys::CopyWhole(folder_.filePath(u"none"_s), target), u"No such file or directory"_s);
    EXPECT_EQ(tests::Bytes(target), "tomorrow");
    EXPECT_EQ(Names(), (QStringList{u"copy.dat"_s, u"data.dat"_s}));
}

TEST_F(Copies, OnlyTheLastAreKeptAndNothingOfTheOperators) {
    const QStringList others{u"data.dat"_s, u"data.旧.2024-03-15.dat"_s, u"data.旧.dat"_s,
                             u"data.新.2001-01-01_00-00-00.dat"_s};
    for (const QString& name : others) tests::Write(folder_.filePath(name), "his own");
    EXPECT_EQ(Keep(), u"data.旧.2024-03-15_10-00-00.dat"_s);
    EXPECT_EQ(Keep(), u"data.旧.2024-03-15_10-00-00_2.dat"_s);
    script_.SetNow(QDateTime(QDate(2024, 3, 16), QTime(9, 0)));
    EXPECT_EQ(Keep(), u"data.旧.2024-03-16_09-00-00.dat"_s);
    tests::Write(folder_.filePath(u"data.旧.2024-03-15_10-00-00.dat-wal"_s), "belongs to the first");

    // A clock that has gone back does not cost the newest copy.
    script_.SetNow(QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
    EXPECT_EQ(Keep(), u"data.旧.2020-01-01_00-00-00.dat"_s);
    QStringList left;
    for (const QString& path : sys::DatedCopiesOf(of_)) left += QFileInfo(path).fileName();
    EXPECT_EQ(left, (QStringList{u"data.旧.2020-01-01_00-00-00.dat"_s, u"data.旧.2024-03-15_10-00-00_2.dat"_s,
                                 u"data.旧.2024-03-16_09-00-00.dat"_s}));
    EXPECT_EQ(Names().size(), others.size() + left.size());
    EXPECT_EQ(tests::RightsOf(of_.folder + u'/' + left.back()), 0600);
}

TEST_F(Copies, GetTheirNameOnlyAfterTheirCheckAndAKilledOneIsSwept) {
    QString seen, words;
    sys::DatedCopies checked = of_;
    checked.check = [&](const QString& path) {
        seen = path;
        EXPECT_EQ(tests::Bytes(path), "today");
        return words;
    };
    checked.spare = [](const QStringList& copies) { return copies; };
    const QString first = sys::KeepDatedCopy(checked).path;
    EXPECT_NE(seen, first);
    EXPECT_EQ(Names(), (QStringList{u"data.dat"_s, QFileInfo(first).fileName()}));
    EXPECT_EQ(sys::DateOfCopy(first), QDateTime(QDate(2024, 3, 15), QTime(10, 0)));
    EXPECT_FALSE(sys::DateOfCopy(of_.file).isValid());

    words = u"damaged"_s;
    for (const QString& left : {seen, seen + u".copying"_s, first + u".copying"_s, first + u"-wal.copying"_s})
        tests::Write(left, "half of it");
    EXPECT_EQ(sys::KeepDatedCopy(checked).failure, words);
    EXPECT_EQ(Names(), (QStringList{u"data.dat"_s, QFileInfo(first).fileName()})) << "the older one stays";

    words.clear();
    const QString second = sys::KeepDatedCopy(checked).path;
    EXPECT_EQ(sys::DatedCopiesOf(checked), QStringList{second}) << "the newest one is never spare";
}

TEST_F(Copies, HoldWhatAKilledProgramLeftBesideTheFileOrAreNotMade) {
    tests::Write(of_.file + u"-wal"_s, "the last commands");
    const QString copy = sys::KeepDatedCopy(of_).path;
    EXPECT_EQ(tests::Bytes(copy), "today");
    EXPECT_EQ(tests::Bytes(copy + u"-wal"_s), "the last commands");

    const QStringList before = Names();
    const auto real = sys::seams().copyFile;
    for (const QString& fails : {of_.file, of_.file + u"-wal"_s}) {
        sys::seams().copyFile = [&](const QString& from, const QString& to) {
            return from == fails ? u"refused"_s : real(from, to);
        };
        EXPECT_EQ(sys::KeepDatedCopy(of_).failure, u"refused"_s);
        EXPECT_EQ(Names(), before) << fails.toStdString();
    }
}

}  // namespace
