// The .xls writer: what two readers find in each of its formats, what does not fit, what a failing disk
// leaves.
#include "platform/workbook/workbook.h"
#include "tests/support/full_disk.h"
#include "tests/support/rights.h"
#include "tests/support/script.h"
#include "tests/support/workbooks.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using workbook::DoesNotFit;
using workbook::Format;
using Rows = QList<QStringList>;

namespace {

struct FormatRow {
    Format format;
    int biff, codePage, longestRecord, mostRows;
};
constexpr FormatRow kFormats[] = {{Format::Biff8, 80, 1200, 8224, 65'536},
                                  {Format::Biff7, 70, 936, 2080, 16'384},
                                  {Format::Biff5, 50, 936, 2080, 16'384}};

class Folder {
  public:
    QString Path(const QString& name) const { return folder_.filePath(name); }
    QStringList Files() const {
        return QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

  private:
    QTemporaryDir folder_;
};

void Write(Format format, const Rows& rows, const QString& path) {
    workbook::Writer book(format, u"mysheet"_s);
    for (const QStringList& row : rows) {
        book.NextRow();
        for (const QString& cell : row) book.Add(cell);
    }
    book.Save(path);
}

TEST(Workbook, EveryCellComesBackInEachFormat) {
    const QString outside = u"泰语ไทย😀ﬁ€"_s;
    const QString widest = u"字"_s.repeated(127) + u"x"_s;  // 255 bytes
    Rows rows{{u"F1"_s, u"F2"_s, u"F3"_s},
              {u"速递单号"_s, u"007"_s, u"12.50"_s},
              {u"a,b\"c'd"_s, u"1E5"_s, u"=1+1"_s},
              {{}, {}, {}},
              {{}, {}, u"é·—°Ω"_s},
              {widest, u" 前后 "_s, QString(255, u'y')}};
    const Folder folder;
    for (const FormatRow& f : kFormats) {
        const QString path = folder.Path(QString::number(f.biff));
        Write(f.format, rows, path);
        const auto book = tests::ReadWorkbook(path);
        EXPECT_EQ(book.biff, f.biff);
        EXPECT_EQ(book.codePage, f.codePage);
        EXPECT_EQ(book.sheets, QStringList{u"mysheet"_s});
        EXPECT_EQ(book.rows, rows) << f.biff;
        EXPECT_TRUE(book.readByBoth);
        EXPECT_EQ(tests::RightsOf(path), 0600);
        EXPECT_LE(book.longestRecord, f.longestRecord);
        // Characters that are not for every format.
        Write(f.format, {{outside, QString(QChar(0xD83D)) + u"半"_s, u"电"_s + QChar(0xDE00)}}, path + u'b');
        const QStringList expected = f.biff == 80 ? QStringList{outside, u"\uFFFD半"_s, u"电\uFFFD"_s}
                                                  : QStringList{u"泰语??????"_s, u"?半"_s, u"电?"_s};
        EXPECT_EQ(tests::ReadWorkbook(path + u'b').rows, Rows{expected});
    }
}

/// Each character by itself, so that one that is taken for another is seen: what the reader's own table of
/// the page has, comes back, all else is "?".
TEST(Workbook, TheCodePageIsTheReadersOwn) {
    Rows rows{{}};
    for (char32_t c = 0x20; c < 0x10000; ++c) {
        if (QChar::isSurrogate(c)) continue;
        if (rows.back().size() == 250) rows += QStringList();
        rows.back() += QString(QChar(static_cast<char16_t>(c)));
    }
    const Folder folder;
    Write(Format::Biff8, rows, folder.Path(u"8"_s));
    Write(Format::Biff5, rows, folder.Path(u"5"_s));
    const auto books = tests::ReadWorkbooks({folder.Path(u"8"_s), folder.Path(u"5"_s)});
    int known = 0;
    for (qsizetype row = 0; row < rows.size(); ++row) {
        for (qsizetype col = 0; col < rows[row].size(); ++col) {
            ASSERT_EQ(books[0].rows.value(row).value(col), rows[row][col]);
            const QString cell = books[1].rows.value(row).value(col);
            const bool same = cell == rows[row][col];
            known += same;
            EXPECT_TRUE(same || cell == u"?") << rows[row][col].toStdString() << cell.toStdString();
        }
    }
    EXPECT_EQ(known, 21'791 + 0x80 - 0x20) << "two-byte characters, and those of one byte";
}

/// A text ends, begins and is split at every place round the end of a record.
TEST(Workbook, TextsGoOverRecordsWhereverTheyEnd) {
    constexpr int kFirstRecord = 8224 - 8 - 3;  // characters of one byte that fill it
    const QString kinds[] = {QString(300, u'n'),
                             u"宽"_s.repeated(300),
                             u"😀"_s.repeated(150),
                             u"a😀"_s.repeated(100),
                             u"宽"_s.repeated(32'767),
                             QString(32'767, u'm'),
                             {}};
    const Folder folder;
    QStringList paths;
    QList<Rows> written;
    for (int left = 0; left < 10; ++left) {
        for (const QString& kind : kinds) {
            written += Rows{{QString(kFirstRecord - left, u'x'), kind,
                             kind + u"尾"_s.repeated(kind.size() < 400), u"z"_s}};
            paths += folder.Path(QString::number(paths.size()));
            Write(Format::Biff8, written.back(), paths.back());
        }
    }
    const auto books = tests::ReadWorkbooks(paths);
    for (qsizetype i = 0; i < paths.size(); ++i) {
        EXPECT_TRUE(books[i].rows == written[i]) << i;
        EXPECT_LE(books[i].longestRecord, 8224);
    }
}

TEST(Workbook, ASheetIsFilledToItsLimitsAndNoFurther) {
    const Folder folder;
    for (const FormatRow& f : kFormats) {
        const int most = f.mostRows;
        // The largest is beyond the 7 MB of which the container's head can say where they are, and has so
        // many texts that some of them fall into the same place of the search.
        const auto text = [](int row, int col) { return u"第%1行"_s.arg(row) + QString(9 + col, u'x'); };
        const auto fill = [&](int rows) {
            workbook::Writer book(f.format, u"mysheet"_s);
            for (int row = 0; row < rows; ++row) {
                book.NextRow();
                for (int col = 0; col < 4; ++col) book.Add(text(row, col));
            }
            book.Save(folder.Path(QString::number(f.biff)));
        };
        fill(most);
        const auto book = tests::ReadWorkbook(folder.Path(QString::number(f.biff)));
        ASSERT_EQ(book.rows.size(), most);
        for (int row = 0; row < most; ++row)
            for (int col = 0; col < 4; ++col) ASSERT_EQ(book.rows[row][col], text(row, col));
        QFile::remove(folder.Path(QString::number(f.biff)));
        try {
            fill(most + 1);
            ADD_FAILURE() << f.biff;
        } catch (const DoesNotFit& refusal) {
            EXPECT_EQ(refusal.reason, DoesNotFit::Reason::TooManyRows);
            EXPECT_EQ(refusal.row, most);
        }
        const QString tooLong = f.biff == 80 ? QString(32'768, u'x') : u"字"_s.repeated(128);
        try {
            Write(f.format, {{u"a"_s}, {u"b"_s, tooLong}}, folder.Path(u"long"_s));
            ADD_FAILURE() << f.biff;
        } catch (const DoesNotFit& refusal) {
            EXPECT_EQ(refusal.reason, DoesNotFit::Reason::TextTooLong);
            EXPECT_EQ(refusal.row, 1);
            EXPECT_EQ(refusal.column, 1);
        }
    }
    EXPECT_TRUE(folder.Files().isEmpty());
}

TEST(Workbook, ASaveThatFailsLeavesNothing) {
    const Folder folder;
    QFile other(folder.Path(u"other.xls"_s));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly) && other.write("kept") == 4);
    other.close();
    ASSERT_TRUE(QFile::link(u"nowhere"_s, folder.Path(u"link.xls"_s)));
    const QStringList before = folder.Files();
    const struct {
        QString path;
        rlim_t diskBytes;
        const char* words;
    } rows[] = {
        {folder.Path(u"full.xls"_s), 0, "磁盘空间不足"},
        {folder.Path(u"full.xls"_s), 5000, "磁盘空间不足"},
        {folder.Path(u"none/a.xls"_s), RLIM_INFINITY, "文件夹不存在"},
        {folder.Path(u"other.xls/a.xls"_s), RLIM_INFINITY, "文件夹不存在"},
        {folder.Path(u"other.xls"_s), RLIM_INFINITY, "文件已经存在，不能覆盖"},
        {folder.Path(u"link.xls"_s), RLIM_INFINITY, "文件已经存在，不能覆盖"},
        {folder.Path(u"长"_s.repeated(100) + u".xls"_s), RLIM_INFINITY, "文件名太长"},
        {u"/sys/kernel/a.xls"_s, RLIM_INFINITY, "没有在该文件夹中写入的权限"},  // for the superuser too
    };
    const Rows texts(600, {u"一二三"_s, u"四"_s});
    for (const auto& row : rows) {
        if (row.path.startsWith(u"/sys/") && !QFile::exists(u"/sys/kernel"_s)) continue;  // not mounted here
        try {
            const tests::FullDisk disk(row.diskBytes);
            Write(Format::Biff5, texts, row.path);
            ADD_FAILURE() << row.path.toStdString();
        } catch (const RuntimeError& error) {
            EXPECT_TRUE(error.Text().contains(row.path)) << error.what();
            EXPECT_TRUE(error.Text().contains(QString::fromUtf8(row.words))) << error.what();
        }
        EXPECT_EQ(folder.Files(), before) << row.path.toStdString();
    }
    ASSERT_TRUE(other.open(QIODevice::ReadOnly));
    EXPECT_EQ(other.readAll(), "kept");
    Write(Format::Biff5, texts, folder.Path(u"full.xls"_s));
    EXPECT_EQ(tests::ReadWorkbook(folder.Path(u"full.xls"_s)).rows, texts) << "and the next one goes through";
}

}  // namespace
