// Every box takes any text. Whatever is pasted into a text box of the waybill's card and
// saved ends as a stored value by the rules of the box, as a message, or as the report of the failing
// statement.
#include "platform/text/numbers.h"
#include "tests/faults/recorded_program.h"
#include "waybills/waybill_fields.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>
#include <set>

using namespace Qt::StringLiterals;
using namespace waybills;
using tests::AltKey;
using tests::Press;

namespace {

constexpr int NoLimit = 1 << 20;

struct Sample {
    const char* name;
    QString text;
    QString number;  ///< what a number's box stores of it; "" where it is too large for any number
};

const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = {
        {"ten thousand", QString(10'000, u'长'), u"0"_s},
        {"ten thousand pairs", u"𝄞"_s.repeated(5'000), u"0"_s},
        {"cut within a pair", u"x"_s + u"𝄞"_s.repeated(30), u"0"_s},
        {"combining", u"e\u0301\u0302"_s.repeated(20), u"0"_s},
        {"right to left", u"\u202eשלום עולם\u202c مرحبا\u200f"_s, u"0"_s},
        {"lone halves", u"甲"_s + QChar(0xDC00) + u'乙' + QChar(0xD800) + u"丙"_s, u"0"_s},
        {"breaks", u"一\r\n二\t三"_s + QChar(0) + u"四\u2028五\u2029六\r七\n八\a九"_s, u"0"_s},
        {"edges", u"\u00a0\u3000 中 \u3000\u00a0"_s, u"0"_s},
        {"blanks", QString(10'000, u' '), u"0"_s},
        {"not characters", u"\ufffe\uffff\ufeff"_s, u"0"_s},
        {"double quotes", u"\"F1\" or \"\"=\""_s, u"0"_s},
        {"statement", u"x;delete from B01;--/*[F1]*/`||==!@#$%^&*()_+?%_"_s, u"0"_s},
        {"backslashes", u"\\n\\0%s%n%1"_s, u"0"_s},
        {"weight", u" 12.5kg "_s, u"12.5"_s},
        {"exponent", u"1e5"_s, u"100000"_s},
        {"many digits", u"123456789012345678901234567890"_s, u"1.23456789012346E+29"_s},
        {"too large", u"1e400"_s, QString()},
        {"negative nothing", u"-0"_s, u"0"_s},
        {"full-width digits", u"１２。５"_s, u"12.5"_s},
        {"other digits", u"٣"_s, u"0"_s},
        {"apostrophe", u"O'Neil"_s, u"0"_s},
        {"injected", u"'); delete from TB1 where (''='"_s, u"0"_s},
        {"apostrophes", u"a'"_s.repeated(5'000), u"0"_s},
    };
    return samples;
}

/// What is in a text box after pasting: `lineBreak` for each line break, a blank for any other control
/// character, U+FFFD for half of a pair, unless it was the limit that cut it.
QString Pasted(QString text, int limit, QChar lineBreak) {
    text = text.left(limit);
    if (!text.isEmpty() && text.back().isHighSurrogate()) text.chop(1);
    const QList<uint> characters = text.toUcs4();  // each half alone as U+FFFD
    text = QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), characters.size());
    text.replace(u"\r\n"_s, QString(lineBreak));
    for (QChar& c : text) {
        if (c == u'\r' || c == u'\n' || c.unicode() == 0x2028 || c.unicode() == 0x2029)
            c = lineBreak;
        else if (c.unicode() < 0x20)
            c = u' ';
    }
    return text;
}

void Paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    Press(Qt::Key_V, Qt::ControlModifier);
}

/// What the operator was shown, each box by the beginning of its text; the report of a failing statement as
/// "report".
QStringList Emitted(tests::RecordedProgram& program) {
    QStringList reported;
    for (const sys::BoxRequest& box : program.boxes) {
        if (box.icon == sys::BoxIcon::Critical)
            reported << u"report"_s;
        else
            reported << box.text.section(u'\r', 0, 0);
    }
    EXPECT_EQ(program.status.has_value(), reported.contains(u"report"_s));
    return reported;
}

/// Brings a program back that has ended or refused, for the next text.
void GoOn(tests::RecordedProgram& program) {
    sys::ClearEnd();
    program.boxes.clear();
    program.status.reset();
    if (EditInProgress) AltKey(u'C');
}

const QString Trapped = u"GetStr执行错误!系统返回如下信息："_s;

class AnyText : public testing::Test {
  public:
    AnyText() { program.Open(u"B"_s, u"B01"_s); }

    /// Enters a waybill, pastes the text into one control and saves.
    void Enter(const QString& control, const QString& text) {
        GoOn(program);
        AltKey(u'A');
        entry.number = u"N%1"_s.arg(++count_);
        tests::FillCard(*program.Frame().Front(), entry);
        for (const Box box : {ReceivedWeight, FuelRate}) program.TextBoxAt(box).SetText(u"3"_s);
        SetFocus(control);
        ASSERT_EQ(tests::FocusName(), control);
        program.boxes.clear();  // entering some boxes starts a computation, which may have reported something
        Paste(text);
        SetFocus(control == u"Txt(3)" ? u"Txt(2)"_s : u"Txt(3)"_s);
        if (!program.status) AltKey(u'S');
    }
    void SetFocus(const QString& control) {
        controls::MoveFocus(&program.At<QWidget>(control));
        tests::Settle();
    }
    /// The field of the waybill that was saved last; "" and a failure if none was.
    QString Field(const QString& field) {
        const QStringList rows = program.Rows(u"select "_s + field + u" from B01"_s);
        EXPECT_EQ(rows.size(), 1);
        return rows.value(0);
    }
    void Empty() {
        program.Execute(u"delete from B01"_s);
        program.Execute(u"delete from TB1"_s);
    }

    tests::RecordedProgram program;
    tests::WaybillEntry entry;

  private:
    int count_ = 0;
};

TEST_F(AnyText, InATextBoxIsCutTrimmedAndStoredOrBreaksItsStatement) {
    for (const BoxRow& row : Boxes()) {
        static const std::set<Box> covered = {
            SendDate, OriginName, ChannelCode,  ServiceZoneCode, Destination, ServiceType,    PaymentMode,
            Maker,    Courier,    CustomerCode, IncidentReason,  ReleaseMark, ChannelZoneCode};
        if (row.kind != Kind::Text || covered.contains(row.box)) continue;
        for (const Sample& sample : Samples()) {
            SCOPED_TRACE(testing::Message() << row.field.toStdString() << ": " << sample.name);
            Empty();
            Enter(u"Txt(%1)"_s.arg(row.box), sample.text);
            const int limit = row.box == Number || row.box == Forwarding ? 25 : 49;
            const QString in = Pasted(sample.text, limit, u' ');
            EXPECT_EQ(program.Box(row.box), in);
            const bool breaks = in.contains(u'\'');
            QStringList expected;
            if (row.box == Number && text::Trim(in).isEmpty()) expected << u"请输入速递单号!"_s;
            if (row.box == Number && breaks) expected << Trapped;
            if (breaks) expected << u"report"_s;
            EXPECT_EQ(Emitted(program), expected);
            if (breaks) {
                EXPECT_TRUE(program.boxes.back().detail.contains(text::Trim(in)));
            }
            if (!expected.isEmpty()) {
                EXPECT_TRUE(program.Rows(u"select F1 from B01"_s).isEmpty());
                continue;
            }
            EXPECT_EQ(Field(row.field), text::Trim(in));
            // And once more as it is, from the list.
            AltKey(u'E');
            AltKey(u'S');
            EXPECT_EQ(Emitted(program), QStringList());
            EXPECT_EQ(Field(row.field), text::Trim(in));
            EXPECT_EQ(program.Rows(u"select F1 from TB1"_s).size(), 2);
        }
        if (HasFailure()) return;
    }
}

TEST_F(AnyText, InANumbersBoxIsReadByItsLeadingNumber) {
    for (const BoxRow& row : Boxes()) {
        if (row.kind != Kind::Number) continue;
        for (const Sample& sample : Samples()) {
            SCOPED_TRACE(testing::Message() << row.field.toStdString() << ": " << sample.name);
            Empty();
            Enter(u"Txt(%1)"_s.arg(row.box), sample.text);
            QStringList expected;
            if (sample.number.isEmpty())
                expected << u"report"_s;
            else if (row.box == TotalCharge && sample.number == u"0")
                expected << u"请输入总计费用!"_s;
            else if (row.box == TotalCharge && sample.text != text::Trim(sample.text))
                expected << u"report"_s;  // its text goes bare into the column of the payment mode
            EXPECT_EQ(Emitted(program), expected);
            if (expected.isEmpty()) {
                EXPECT_EQ(Field(row.field), sample.number);
            }
        }
        if (HasFailure()) return;
    }
}

TEST_F(AnyText, InAComboIsTestedOrStoredOrReported) {
    for (const Box box : {CustomerCode, ChannelCode, ServiceZoneCode, OriginName, Courier, ServiceType,
                          PaymentMode, Destination, ChannelZoneCode, IncidentReason}) {
        const bool cutAtPoint = box != IncidentReason;
        for (const Sample& sample : Samples()) {
            SCOPED_TRACE(testing::Message() << Boxes()[box].field.toStdString() << ": " << sample.name);
            Empty();
            Enter(u"Cmb(%1)"_s.arg(box), sample.text);
            const QStringList reported = Emitted(program);
            const bool saved = program.Rows(u"select F1 from B01"_s).size() == 1;
            EXPECT_EQ(saved, reported.isEmpty()) << reported.join(u' ').toStdString();
            if (!saved) continue;
            QString in = Pasted(sample.text, NoLimit, u' ');
            if (cutAtPoint) in = text::Trim(in).section(u'.', 0, 0);
            EXPECT_EQ(Field(Boxes()[box].field), text::Trim(Pasted(in, 49, u' ')));
        }
        if (HasFailure()) return;
    }
}

}  // namespace
