#include "tests/display/waybill_scripts.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr int kTypist = 100;  // milliseconds

/// What no two waybills share.
const QStringList kItsOwn = {u"B01.F1"_s, u"TB1.SN"_s, u"TB1.F1"_s, u"TB1.QC"_s, u"TB1.QM"_s, u"TB1.H8"_s};

QStringList StoredIn(ProgramRun& run, const QString& table, const QString& condition) {
    QStringList columns;
    for (const QString& column : run.Rows(u"pragma table_info(%1)"_s.arg(table)))
        columns << table + u'.' + column.section(u'|', 1, 1);
    QStringList stored;
    for (const QString& row : run.Rows(u"select * from %1 where %2"_s.arg(table, condition))) {
        const QStringList values = row.split(u'|');
        for (qsizetype i = 0; i < columns.size(); ++i)
            if (!kItsOwn.contains(columns[i])) stored << columns[i] + u" = "_s + values.value(i);
    }
    return stored;
}

}  // namespace

Script OpenWaybills() {
    return {Alt('b'), ExpectIdle()};
}

Script BeginWaybill() {
    return {Alt('a'),
            Fill(u"SH001"_s),  // customer
            MoveOn(),          // release mark
            Press(kSpace),     // released
            MoveOn(),
            Fill(u"Late"_s),     // incident
            Fill(u"Strike"_s),   // its explanation
            Fill(u"Weather"_s),  // reason
            Fill(u"Closed"_s),   // outcome
            Fill(u"J. Doe"_s),   // signed by
            Fill(u"2026-12-01 10:30"_s)};
}

Script FillWaybill(const QString& weight) {
    return {MoveOn(),             // date
            Fill(u"FW-7781"_s),   // forwarding number
            Fill(u"Keep dry"_s),  // remark
            MoveOn(),             // origin
            Fill(u"D01"_s),       // service zone
            Fill(u"New York"_s),  // destination
            Fill(u"Q1"_s),        // channel
            Press(kDown, 3),      // from the first of its zones, which is proposed, to the fourth
            MoveOn(5),            // and past the shipper's boxes
            Fill(u"Acme"_s),      // consignee
            Fill(u"+1 212 555"_s),
            Fill(u"Acme Optics Inc."_s),
            Fill(u"463 7th Av."_s),
            Fill(u"463 Seventh Avenue, NY"_s),
            Fill(u"S"_s),        // service type
            Fill(u"Lenses"_s),   // goods
            Fill(u"USD 480"_s),  // declared value
            Fill(u"3"_s),        // pieces
            Fill(u"60x40x30"_s),
            Fill(weight),     // received
            Fill(u"12.4"_s),  // first weighing
            Fill(u"13"_s),    // shipped
            Fill(u"60"_s),
            Fill(u"40"_s),
            Fill(u"30"_s),
            MoveOn()};  // payment mode
}

Script FinishWaybill() {
    return {MoveOn(),          // basic charge
            Fill(u"35"_s),     // additional charge
            Fill(u"20"_s),     // other fees
            Fill(u"1.145"_s),  // fuel rate
            MoveOn(2),         // total, cost
            Fill(u"15"_s),     // the channel's additional fees
            Fill(u"5"_s),      // its other fees
            Type(u"1.12"_s),   // its fuel rate
            MoveBack(3),       // to the cost, which rests on the last three
            Alt('s')};
}

Script FinishExplained() {
    return {Press(kF1),                                                           // in the basic charge
            MoveOn(),                                                             // closes the panel
            Fill(u"35"_s),                                                        // additional charge
            Fill(u"20"_s),                                                        // other fees
            Fill(u"1.145"_s),                                                     // fuel rate
            Press(kF1),                                                           // in the total
            Press(kEscape),   Press(kF1), Control('c'), MoveOn(), Press(kF1, 2),  // in the cost
            MoveOn(),
            Fill(u"15"_s),    // the channel's additional fees
            Press(kF1),       // opens nothing here
            Fill(u"5"_s),     // its other fees
            Type(u"1.12"_s),  // its fuel rate
            MoveBack(3),      // to the cost
            Press(kF1),       Alt('s')};
}

Script AddWaybill(const QString& number) {
    return BeginWaybill() + Script{Fill(number)} + FillWaybill(u"12.5"_s) + FinishWaybill();
}

Step ExpectWaybill(const QString& number) {
    return ExpectRows(u"select count(*) from B01 where F1='%1'"_s.arg(number), {u"1"_s});
}

QStringList Stored(ProgramRun& run, const QString& number) {
    return StoredIn(run, u"B01"_s, u"F1='%1'"_s.arg(number)) +
           StoredIn(run, u"TB1"_s, u"F1='YS%1'"_s.arg(number)) +
           StoredIn(run, u"TB1"_s, u"F1='YF%1'"_s.arg(number));
}

const QStringList& Reference() {
    static const QStringList stored = [] {
        ProgramRun run;
        run.Play(LogIn() + OpenWaybills());
        for (const QString& number : {u"REF1"_s, u"REF2"_s})
            run.Play(AddWaybill(number) + Script{ExpectWaybill(number)}, {.milliseconds = kTypist});
        return Stored(run, u"REF2"_s);
    }();
    return stored;
}

QString DifferenceFromReference(ProgramRun& run, const QString& number) {
    const QStringList stored = Stored(run, number);
    QStringList lines;
    for (const QString& value : stored)
        if (!Reference().contains(value)) lines << u"stored:    "_s + value;
    for (const QString& value : Reference())
        if (!stored.contains(value)) lines << u"should be: "_s + value;
    if (lines.isEmpty() && stored != Reference()) lines << u"rows are missing or double"_s;
    return lines.join(u'\n');
}

QString WaybillTyping::Differences(const Pace& pace) {
    const QString number = u"TY%1"_s.arg(++typed_, 4, 10, QChar(u'0'));
    try {
        Reference();
        if (!run_) {
            run_ = std::make_unique<ProgramRun>();
            run_->Play(LogIn() + OpenWaybills());
        }
        run_->Play(AddWaybill(number) + Script{ExpectWaybill(number)}, pace);
        return DifferenceFromReference(*run_, number);
    } catch (const std::exception& failure) {
        run_.reset();  // nobody knows what it shows now
        return QString::fromUtf8(failure.what());
    }
}

}  // namespace display
