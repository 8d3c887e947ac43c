// Texts that nobody would write, put through everything that reads a text or makes one: the dialect and the
// engine behind it, numbers, formats, dates, patterns. Nothing may fall over, and where there are two ways to
// the same answer they must agree.
//
// MADE_UP_TEXTS=n makes it longer, MADE_UP_SEED=n makes other texts.
#include "platform/dao/connection.h"
#include "platform/dao/database.h"
#include "platform/dao/dialect/functions.h"
#include "platform/errors.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "tests/support/company.h"
#include "tests/support/environment.h"

#include <QRegularExpression>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using namespace dao;

namespace {

/// Makes texts out of what the system's own statements, numbers and dates are made of, and of what they are
/// not.
class Maker {
  public:
    explicit Maker(unsigned seed) : random_(seed) {}

    int UpTo(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    QString Text() {
        QString text;
        switch (UpTo(4)) {
            case 0:
                text = Number();
                break;
            case 1:
                text = Date();
                break;
            case 2:
                text = Pick(Statements);
                for (int i = UpTo(3); i > 0; --i) text.replace(Pick(Pieces), Pick(Pieces));
                break;
            default:
                for (int i = 1 + UpTo(12); i > 0; --i) text += Pick(Pieces) + QString(UpTo(2), u' ');
        }
        for (int i = UpTo(4) - 1; i > 0; --i) Spoil(text);
        return text;
    }

    /// Any bits of a number, or an amount as the office writes it.
    double Double() {
        switch (UpTo(3)) {
            case 0: {
                const std::uint64_t bits = (std::uint64_t{random_()} << 32) | random_();
                double value = 0;
                std::memcpy(&value, &bits, sizeof value);
                return std::isfinite(value) ? value : 0;
            }
            case 1:
                return (UpTo(2'000'000'000) - 1'000'000'000) / std::pow(10, UpTo(8));
            default:
                return std::ldexp(UpTo(1 << 30) - (1 << 29), UpTo(60) - 30);
        }
    }

  private:
    const QString& Pick(const QStringList& list) { return list[UpTo(static_cast<int>(list.size()))]; }

    QString Number() {
        static const QStringList signs = u"¦¦-¦+¦ ¦  -"_s.split(u'¦');
        static const QStringList behind = u"¦¦¦e5¦E-3¦e+400¦e¦kg¦.¦e-400¦１"_s.split(u'¦');
        QString text = Pick(signs);
        for (int i = UpTo(20); i > 0; --i) text += QChar(u'0' + UpTo(10));
        if (UpTo(2) == 0) text += u'.';
        for (int i = UpTo(20); i > 0; --i) text += QChar(u'0' + UpTo(10));
        return text + Pick(behind);
    }

    QString Date() {
        const auto between = [this](int low, int high) {
            return QString::number(low + UpTo(high - low + 1));
        };
        const QString sign = UpTo(2) ? u"-"_s : u"/"_s;
        const auto wide = [this](const QString& n) { return UpTo(2) ? n.rightJustified(2, u'0') : n; };
        QString text =
            between(1, UpTo(2) ? 9999 : 20240) + sign + wide(between(0, 13)) + sign + wide(between(0, 32));
        if (UpTo(2)) text = text.rightJustified(10, u'0');
        if (UpTo(2)) text += u' ' + wide(between(0, 25)) + u':' + wide(between(0, 61));
        if (UpTo(3) == 0) text += u':' + wide(between(0, 61));
        return text;
    }

    void Spoil(QString& text) {
        const int at = UpTo(static_cast<int>(text.size()) + 1);
        switch (UpTo(4)) {
            case 0:
                text.remove(at, 1 + UpTo(4));
                break;
            case 1:
                text.insert(at, QChar(static_cast<char16_t>(UpTo(0x10000))));  // halves of pairs too
                break;
            case 2:
                text.insert(at, text.mid(UpTo(at + 1), UpTo(30)));
                break;
            default:
                text.insert(at, Pick(Pieces));
        }
    }

    static inline const QStringList Statements = {
        u"select * from M04 order by F1"_s,
        u"select top 3 F1,F2 from TB1 where F3='华兴' and datediff('d','2024-03-10',F2)<=0 order by SN desc"_s,
        u"select B01.F1,M01.F2 FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on M01.f1=B01.f202 "
        "where B01.F101 like '2024-0*' ORDER BY B01.F101 "_s,
        u"select M02.F1 from M02  WHERE M02.F1 LIKE 'A?[0-9]#*' order by M02.F1"_s,
        u"select sum(YF) as S,F3 from TB1 where LB=-9 and not F6='x' group by F3 having sum(YF)>0"_s,
        u"select count(*) from B01 where F604 not in ('未审核','未出货') and F504 between 1 and 5"_s,
        u"insert into M04 (F1,F2) VALUES ('王五','早班')"_s,
        u"insert into TB1 (SN,LB,F1,F2,F3,YF) VALUES (131.5,-9,'YSW1','2024-3-1','某',1E+2)"_s,
        u"insert into M011 (F1,F2,F3,A30,A31) VALUES ('H1-1','美东','H1',False,True)"_s,
        u"update TB1 set F2='2024/3/5',QC=QC-5.5,QM=QM-(1.5*2) where F1='YSW1'"_s,
        u"update TE1 set F67=-1 where F1=\"001\""_s,
        u"delete from M031 where F0 in (select F1 from M02 where F3='Z')"_s,
        u"delete FROM TB1 WHERE F1='YF1' OR F1='YS1';"_s,
        u"select distinct [F1] from [M04] where F2 is not null union select F1 from M05"_s,
    };
    /// Words and signs of statements, each between two broken bars.
    static inline const QStringList Pieces =
        (u"select¦from¦where¦order by¦top¦insert into¦values¦update¦set¦delete¦like¦datediff¦and¦or¦not¦"
         "in¦is null¦True¦False¦as¦group by¦desc¦left join¦on¦case¦when¦exists¦null¦count(*)¦sum¦"
         "collate¦cast¦into¦rowid¦limit 1¦pragma key¦attach¦B01¦TB1¦M04¦F1¦F2¦SN¦F101¦[F1]¦[D/S]¦F1.F2¦"
         "'x' in¦[¦]¦*¦?¦#¦[!a-z]¦%¦_¦'¦''¦\"¦'d'¦'2024-03-10'¦'长'¦(¦)¦,¦.¦;¦--¦/*¦*/¦`¦||¦==¦<>¦<=¦"
         ">=¦=¦<¦>¦+¦-¦*¦/¦\\¦@¦:a¦?1¦$¦~¦&¦|¦^¦!¦0¦1¦-1¦12.5¦1e5¦1E+400¦0x1F¦.5¦5.¦"
         "99999999999999999999¦\r\n¦\t¦　¦甲¦𝄞¦é"_s)
            .split(u'¦');

    std::mt19937 random_;
};

struct Tally {
    int translated = 0, prepared = 0, numbers = 0, dates = 0;
};

// ---------------------------------------------------------------- statements

class Engine {
  public:
    Engine()
        : company_({.vfs = {}, .prepare = [this](sqlite3* engine) {
                        engine_ = engine;
                        // Nothing that can be made up here is worth more than a moment.
                        sqlite3_progress_handler(
                            engine, 50'000, [](void*) { return 1; }, nullptr);
                    }}) {
        tables_.SetEngine(engine_);
        company_.Run({u"insert into M04 (F1,F2) VALUES ('甲','1')"_s,
                      u"insert into M02 (F1,F2) VALUES ('A10','乙')"_s,
                      u"insert into B01 (F1,F101,F604) VALUES ('W1','2024-03-10','未审核')"_s,
                      u"insert into TB1 (SN,LB,F1,F2,F3,YF) VALUES (1,-9,'YSW1','2024-03-10','华兴',5)"_s});
        company_.Db().CloseGroup();
    }

    /// What the dialect lets through is one statement of the kind that it says, whole, with as many values as
    /// it asks for.
    void Check(const QString& text, bool dynaset, Tally& tally) {
        const QByteArray utf8 = text.toUtf8();
        dialect::Translation translation;
        try {
            translation =
                dialect::Translate({utf8.constData(), static_cast<size_t>(utf8.size())}, tables_, dynaset);
        } catch (const dialect::Refusal& refusal) {
            EXPECT_FALSE(refusal.text.isEmpty());
            return;
        }
        ++tally.translated;
        const std::string& sql = translation.sql;
        const char* tail = nullptr;
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(engine_, sql.c_str(), static_cast<int>(sql.size()) + 1, &statement, &tail) !=
            SQLITE_OK)
            return;
        ++tally.prepared;
        EXPECT_EQ(tail, sql.c_str() + sql.size()) << sql;
        EXPECT_EQ(sqlite3_bind_parameter_count(statement), static_cast<int>(translation.values.size()))
            << sql;
        EXPECT_EQ(sqlite3_stmt_readonly(statement) != 0, translation.verb == dialect::Verb::Select) << sql;
        sqlite3_finalize(statement);
        Run(text, translation.verb == dialect::Verb::Select, dynaset);
    }

  private:
    void Run(const QString& text, bool reads, bool dynaset) {
        try {
            if (reads) {
                auto rows = company_.Db().OpenRecordset(
                    text, dynaset ? RecordsetType::Dynaset : RecordsetType::ForwardOnly);
                for (; !rows.Eof(); rows.MoveNext())
                    for (int i = 0; i < rows.FieldCount(); ++i) rows.Fields(i).Text();
            } else {
                company_.Db().Execute(text);
            }
        } catch (const PlatformError& error) {
            EXPECT_FALSE(error.Text().isEmpty());
        }
        // What was written is rolled back, so that there is always something to find.
        if (sqlite3_get_autocommit(engine_) == 0)
            sqlite3_exec(engine_, "rollback; begin", nullptr, nullptr, nullptr);
        try {
            company_.Db().CloseGroup();
        } catch (const DatabaseError&) {
            // Stopped in the middle of writing.
        }
    }

    sqlite3* engine_ = nullptr;
    tests::Company company_;
    TableCache tables_;
};

// ---------------------------------------------------------------- numbers

/// The engine's own reading of a number, or nothing where it is too large.
std::optional<double> ReadPlainly(const QString& text) {
    static const QRegularExpression number(
        u"\\A *([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"_s);
    const auto match = number.match(QString::fromUtf8(text.toUtf8()));  // halves of pairs match nothing
    if (!match.hasMatch()) return 0;
    const double value = std::strtod(match.captured(1).toLatin1().constData(), nullptr);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

void CheckNumberText(const QString& text, Tally& tally) {
    std::optional<double> read;
    try {
        read = text::Val(text);
    } catch (const RuntimeError&) {
    }
    const auto plainly = ReadPlainly(text);
    // A number too small to be held in full is nothing here and nearly nothing there.
    const bool same = read.has_value() == plainly.has_value() &&
                      (!read || *read == *plainly || (*read == 0 && std::fabs(*plainly) < 1e-300));
    EXPECT_TRUE(same) << text.toStdString();
    if (!read) return;
    if (*read != 0) ++tally.numbers;
    if (text::IsPlainNumber(text)) {
        EXPECT_EQ(*read, text::Trim(text).toDouble()) << text.toStdString();
    }
}

QByteArray Printed(const char* form, double value) {
    char shown[48];
    return QByteArray(shown, std::snprintf(shown, sizeof shown, form, value));
}

/// Rounds the 15-digit decimal form by hand.
QString RoundByHand(double value, int decimals) {
    const QByteArray shown = Printed("%.14e", std::fabs(value));
    QByteArray digits = shown.left(1) + shown.mid(2, 14);
    int whole = shown.mid(17).toInt() + 1;  // digits before the point
    if (whole < 0) {
        digits.prepend(QByteArray(-whole, '0'));
        whole = 0;
    }
    digits = '0' + digits.leftJustified(whole + decimals + 1, '0');
    ++whole;
    const qsizetype kept = whole + decimals;
    const bool up = digits[kept] >= '5';
    digits.truncate(kept);
    for (qsizetype i = kept - 1; up && i >= 0; --i) {
        if (digits[i] != '9') {
            ++digits[i];
            break;
        }
        digits[i] = '0';
    }
    qsizetype zeros = 0;
    while (zeros < whole - 1 && digits[zeros] == '0') ++zeros;
    const bool minus = value < 0 && digits.count('0') != digits.size();
    return QString::fromLatin1((minus ? "-" : "") + digits.mid(zeros, whole - zeros) + '.' +
                               digits.mid(whole));
}

void CheckDouble(double value) {
    const QString general = text::GeneralText(value);
    EXPECT_EQ(general.toDouble(), Printed("%.15g", value).toDouble()) << general.toStdString();
    EXPECT_TRUE(general.contains(u'E') || text::IsPlainNumber(general)) << general.toStdString();
    EXPECT_FALSE(general == u"-0" || general.startsWith(u'.')) << general.toStdString();
    for (const int decimals : {1, 2})
        EXPECT_EQ(text::FormatFixed(value, decimals), RoundByHand(value, decimals));
    try {
        const float single = text::ToSingle(value);
        EXPECT_EQ(text::GeneralText(single).toFloat(), Printed("%.7g", double(single)).toFloat());
        EXPECT_LE(std::abs(text::ToInteger32(value) - value), 0.5);
        EXPECT_LE(std::abs(text::ToInteger16(value) - value), 0.5);
    } catch (const RuntimeError&) {
        EXPECT_GT(std::fabs(value), 32767);
    }
}

// ---------------------------------------------------------------- dates and patterns

void CheckDateText(const QString& text, Tally& tally) {
    const auto read = text::ReadDateTime(text);
    const std::string utf8 = text.toStdString();
    const auto moment = dialect::ReadMoment(utf8);
    const auto normal = dialect::NormalDate(utf8);
    ASSERT_EQ(read.has_value(), moment.has_value()) << utf8;
    ASSERT_EQ(read.has_value(), normal.has_value()) << utf8;
    if (!read) return;
    ++tally.dates;
    ASSERT_TRUE(read->isValid());
    EXPECT_EQ(text::ReadDateTime(text::DateTimeText(*read)), read) << utf8;
    EXPECT_EQ(*normal,
              (text.contains(u':') ? text::DateTimeText(*read) : text::DateText(read->date())).toStdString());
    EXPECT_EQ(dialect::DayText(moment->DayNumber()), text::DateText(read->date()).toStdString());
    EXPECT_EQ(moment->second, read->time().msecsSinceStartOfDay() / 1000);
    const dialect::Moment fixed{2024, 3, 10, 0};
    EXPECT_EQ(dialect::Datediff("d", fixed, *moment), QDate(2024, 3, 10).daysTo(read->date()));
}

void CheckLike(const QString& text, const QString& pattern, Maker& make) {
    dialect::Like(text.toStdString(), pattern.toStdString());
    QString literal;
    for (const QChar c : text) literal += u"*?#["_s.contains(c) ? u'[' + QString(c) + u']' : QString(c);
    const auto at = make.UpTo(static_cast<int>(literal.size()) + 1);
    const std::string whole = QString::fromUtf8(text.toUtf8()).toStdString();
    const std::string same = QString::fromUtf8(literal.toUtf8()).toStdString();
    EXPECT_TRUE(dialect::Like(whole, same)) << whole;
    EXPECT_TRUE(dialect::Like(whole + "x", "*" + same + "?")) << whole;
    if (!literal.contains(u'[')) {
        EXPECT_TRUE(dialect::Like(whole, (literal.left(at) + u'*').toStdString())) << whole;
    }
}

TEST(MadeUpTexts, ArePassedOrRefusedAndReadTheSameEveryWay) {
    const int texts = tests::FromEnvironment("MADE_UP_TEXTS", 20'000);
    const auto seed = static_cast<unsigned>(tests::FromEnvironment("MADE_UP_SEED", 7305));
    Maker make(seed);
    Engine engine;
    Tally tally;
    QString before;
    for (int i = 0; i < texts && !testing::Test::HasFailure(); ++i) {
        const QString text = make.Text();
        SCOPED_TRACE(testing::Message() << "text " << i << " of seed " << seed << ": " << text.toStdString());
        try {
            engine.Check(text, make.UpTo(4) == 0, tally);
            CheckNumberText(text, tally);
            CheckDouble(make.Double());
            CheckDateText(text, tally);
            CheckLike(text, before, make);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        before = text;
    }
    std::printf("%d texts: %d statements translated, %d of them prepared; %d numbers, %d dates read\n", texts,
                tally.translated, tally.prepared, tally.numbers, tally.dates);
    for (const int each : {tally.translated, tally.prepared, tally.numbers, tally.dates})
        EXPECT_GT(each, texts / 50) << "the texts miss what they are meant for";
}

}  // namespace
