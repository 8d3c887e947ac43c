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

Script Fills(const QStringList& texts) {
    Script script;
    for (const QString& text : texts) script.push_back(Fill(text));
    return script;
}

}  // namespace

Script OpenWaybills() {
    return {Alt('b'), ExpectIdle()};
}

Script BeginWaybill() {
    // Customer, release mark; incident, explanation, reason, outcome, signed by and when.
    return Script{Alt('a'), Fill(u"SH001"_s), MoveOn(), Press(kSpace), MoveOn()} +
           Fills({u"Late"_s, u"Strike"_s, u"Weather"_s, u"Closed"_s, u"J. Doe"_s, u"2026-12-01 10:30"_s});
}

Script FillWaybill(const QString& weight) {
    // Past the date: forwarding number, remark, origin, service zone, destination, channel; from the first of
    // its zones, which is proposed, to the fourth, and past the shipper's boxes.
    return Script{MoveOn()} + Fills({u"FW-7781"_s, u"Keep dry"_s}) + Script{MoveOn()} +
           Fills({u"D01"_s, u"New York"_s, u"Q1"_s}) + Script{Press(kDown, 3), MoveOn(5)} +
           // Consignee; service type, goods, declared value, pieces, size; weights received, first and
           // shipped.
           Fills({u"Acme"_s, u"+1 212 555"_s, u"Acme Optics Inc."_s, u"463 7th Av."_s,
                  u"463 Seventh Avenue, NY"_s, u"S"_s, u"Lenses"_s, u"USD 480"_s, u"3"_s, u"60x40x30"_s,
                  weight, u"12.4"_s, u"13"_s, u"60"_s, u"40"_s, u"30"_s}) +
           Script{MoveOn()};  // payment mode
}

Script FinishWaybill() {
    // Basic charge; additional charge, other fees, fuel rate; total, cost; the channel's additional and other
    // fees and fuel rate; back to the cost, which rests on the last three.
    return Script{MoveOn()} + Fills({u"35"_s, u"20"_s, u"1.145"_s}) + Script{MoveOn(2)} +
           Fills({u"15"_s, u"5"_s}) + Script{Type(u"1.12"_s), MoveBack(3), Alt('s')};
}

Script FinishExplained() {
    // In the basic charge, whose leaving closes the panel; in the total; in the cost.
    return Script{Press(kF1), MoveOn()} + Fills({u"35"_s, u"20"_s, u"1.145"_s}) +
           Script{Press(kF1), Press(kEscape), Press(kF1), Control('c'), MoveOn(), Press(kF1, 2), MoveOn()} +
           // In the channel's fees F1 opens nothing.
           Script{Fill(u"15"_s), Press(kF1), Fill(u"5"_s), Type(u"1.12"_s),
                  MoveBack(3),   Press(kF1), Alt('s')};
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
