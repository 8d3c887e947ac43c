#include "reconcile/channel_bill.h"

#include "app/data_access.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "platform/text/stored_key.h"
#include "waybills/waybill_fields.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace reconcile {
namespace {

/// Blanks of any width around it do not count, and full-width characters are the usual ones.
QString KeyOf(const QString& number) {
    QString key = number.trimmed();
    for (QChar& c : key)
        if (c >= QChar(0xFF01) && c <= QChar(0xFF5E)) c = QChar(c.unicode() - (0xFF01 - u'!'));
    return text::StoredKey(key);
}

/// A number too small for the digits of an amount is stored as 1E-05.
Amount StoredAmount(const QString& text) {
    constexpr double least = 0.00005;
    bool number = false;
    const double value = text.toDouble(&number);
    if (text.isEmpty() || (number && std::abs(value) < least)) return 0;
    return ReadDecimal(text);
}

/// What a number of many digits becomes in a table: "1.23457E+11".
bool IsScientific(const QString& number) {
    static const QRegularExpression form(u"^[0-9](\\.[0-9]+)?[Ee]\\+[0-9]+$"_s);
    return form.match(number).hasMatch();
}

bool IsLongNumber(const QString& number) {
    return sheet::IsTooLong(number) && std::ranges::all_of(number, [](QChar c) { return c.isDigit(); });
}

/// One line of the bill.
struct BillLine {
    int row;
    QString number;
    Side side;
    QStringList problems;
};

class BillReader {
  public:
    BillReader(const sheet::Sheet& bill, const BillColumns& columns) : bill_(bill), columns_(columns) {
        for (const auto& cell : bill.notUnderstood) reasons_[{cell.row, cell.column}] = cell.reason;
    }

    void Read() {
        for (int row = std::max(0, columns_.firstRow); row < static_cast<int>(bill_.rows.size()); ++row)
            TakeRow(row);
    }

    std::vector<BillLine> lines;
    int passedOver = 0;
    /// What was not understood in other cells than those of the lines.
    std::vector<BillLine> Others() {
        std::vector<BillLine> others;
        for (const auto& [place, reason] : reasons_)
            others.push_back(
                {place.first, {}, {}, {sheet::Address(place.first, place.second) + u' ' + reason}});
        const int more = bill_.reports - static_cast<int>(bill_.notUnderstood.size());
        if (more > 0) others.push_back({-1, {}, {}, {u"另有 %1 个单元格无法读取"_s.arg(more)}});
        return others;
    }

  private:
    void TakeRow(int row) {
        const QString number = bill_.At(row, columns_.number).trimmed();
        const QString weight = columns_.weight < 0 ? QString() : bill_.At(row, columns_.weight);
        const QString cost = columns_.cost < 0 ? QString() : bill_.At(row, columns_.cost);
        const bool reported = Reported(row);
        const bool nothing = number.isEmpty() && weight.trimmed().isEmpty() && cost.trimmed().isEmpty();
        if (!reported && (nothing || IsTotal(row, number))) {
            ++passedOver;
            return;
        }
        BillLine line{row, number, {}, {}};
        if (!TakeReason(line, columns_.number)) CheckNumber(line);
        if (columns_.weight >= 0) line.side.weight = AmountOf(line, columns_.weight, weight);
        if (columns_.cost >= 0) line.side.cost = AmountOf(line, columns_.cost, cost);
        lines.push_back(std::move(line));
    }

    void CheckNumber(BillLine& line) const {
        const QString place = sheet::Address(line.row, columns_.number) + u' ';
        if (line.number.isEmpty()) line.problems += u"没有单号"_s;
        if (IsScientific(line.number)) line.problems += place + u"单号成了科学计数"_s;
        // Whether the cell was reported is not known where not all reports are kept.
        const bool all = bill_.reports <= static_cast<int>(bill_.notUnderstood.size());
        if (!all && IsLongNumber(line.number)) line.problems += place + sheet::kTooLong.toString();
    }

    bool Reported(int row) const {
        return std::ranges::any_of(std::array{columns_.number, columns_.weight, columns_.cost},
                                   [&](int column) {
                                       return reasons_.contains({row, column});
                                   });
    }

    /// The number's cell is empty or says itself that the row is one.
    bool IsTotal(int row, const QString& number) const {
        static const QStringList words = {u"合计"_s, u"总计"_s, u"小计"_s, u"共计"_s, u"总额"_s, u"total"_s};
        const auto says = [](QString text) {
            text.remove(u' ').remove(QChar(0x3000));
            return std::ranges::any_of(
                words, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
        };
        if (!number.isEmpty()) return says(number);
        return std::ranges::any_of(bill_.rows[static_cast<std::size_t>(row)], says);
    }

    bool TakeReason(BillLine& line, int column) {
        const auto found = reasons_.find({line.row, column});
        if (found == reasons_.end()) return false;
        line.problems += sheet::Address(line.row, column) + u' ' + found->second;
        reasons_.erase(found);
        return true;
    }

    Amount AmountOf(BillLine& line, int column, const QString& text) {
        const bool reported = TakeReason(line, column);
        const Amount amount = ReadDecimal(text);
        if (!amount && !reported)
            line.problems +=
                sheet::Address(line.row, column) +
                (text.trimmed().isEmpty() ? u" 是空的"_s : u" “%1”不是数字"_s.arg(text.left(40)));
        return amount;
    }

    const sheet::Sheet& bill_;
    const BillColumns& columns_;
    std::map<std::pair<int, int>, QString> reasons_;
};

Line LineOf(const BillLine* theirs, const Waybill* ours) {
    Line line;
    if (theirs) {
        line.billRow = theirs->row;
        line.billNumber = theirs->number;
        line.theirs = theirs->side;
        line.remark = theirs->problems.join(u'；');
    }
    if (ours) {
        line.number = ours->number;
        line.forwarding = ours->forwarding;
        line.date = ours->date;
        line.ours = ours->side;
    }
    return line;
}

void Remark(Line& line, const QString& text) {
    line.remark += (line.remark.isEmpty() ? QString() : u"；"_s) + text;
}

bool Within(const Amount& ours, const Amount& theirs, Decimal tolerance) {
    const Amount difference = Difference(ours, theirs);
    return difference && std::abs(*difference) <= tolerance;
}

class Comparison {
  public:
    Comparison(const sheet::Sheet& bill, const BillColumns& columns, const std::vector<Waybill>& ours)
        : columns_(columns), ours_(ours), reader_(bill, columns) {}

    Reconciliation Run() {
        reader_.Read();
        result_.passedOver = reader_.passedOver;
        result_.weight = columns_.weight >= 0;
        result_.cost = columns_.cost >= 0;
        for (const Waybill& waybill : ours_)
            if (const QString key = KeyOf(waybill); !key.isEmpty()) ourKeys_[key].push_back(&waybill);
        for (const BillLine& line : reader_.lines) ++theirKeys_[reconcile::KeyOf(line.number)].lines;
        for (const BillLine& line : reader_.lines) TakeLine(line);
        for (const BillLine& other : reader_.Others()) AddUnread(other);
        for (const Waybill& waybill : ours_) TakeOurs(waybill);
        return std::move(result_);
    }

  private:
    using Waybills = std::vector<const Waybill*>;
    /// Lines of the bill with one number.
    struct Same {
        std::size_t lines = 0;
        std::size_t taken = 0;
    };

    const Waybills& OursOf(const QString& key) const {
        static const Waybills none;
        const auto found = ourKeys_.constFind(key);
        return found == ourKeys_.constEnd() ? none : *found;
    }

    QString KeyOf(const Waybill& waybill) const {
        return reconcile::KeyOf(columns_.byForwarding ? waybill.forwarding : waybill.number);
    }

    void AddUnread(const BillLine& line) {
        Line unread = LineOf(&line, nullptr);
        if (unread.theirs.weight || unread.theirs.cost) ++result_.unnumbered;
        unread.outcome = Outcome::NotRead;
        result_.lines.push_back(std::move(unread));
    }

    void TakeLine(const BillLine& theirs) {
        if (theirs.number.isEmpty()) return AddUnread(theirs);
        const QString key = reconcile::KeyOf(theirs.number);
        Same& same = theirKeys_[key];
        const Waybills& ours = OursOf(key);
        const std::size_t place = same.taken++;
        Line line = LineOf(&theirs, place < ours.size() ? ours[place] : nullptr);
        if (same.lines > 1 || ours.size() > 1)
            TakeTwice(line, same.lines, ours.size());
        else if (!theirs.problems.isEmpty())
            line.outcome = Outcome::NotRead;
        else if (ours.empty())
            line.outcome = Outcome::TheirsOnly;
        else
            line.outcome = OutcomeOf(line);
        if (place < ours.size() && !ours[place]->released) Remark(line, u"我方未出货"_s);
        result_.lines.push_back(std::move(line));
        if (same.taken == same.lines) AddRestOfOurs(ours, same.lines);
    }

    static void TakeTwice(Line& line, std::size_t theirs, std::size_t ours) {
        line.outcome = Outcome::Twice;
        if (theirs > 1) Remark(line, u"帐单中有 %1 行"_s.arg(theirs));
        if (ours > 1) Remark(line, u"我方有 %1 票"_s.arg(ours));
        if (ours == 0) Remark(line, u"我方没有"_s);
    }

    /// Waybills of a number beyond the lines of the bill.
    void AddRestOfOurs(const Waybills& ours, std::size_t first) {
        for (std::size_t i = first; i < ours.size(); ++i) {
            Line line = LineOf(nullptr, ours[i]);
            TakeTwice(line, first, ours.size());
            if (!ours[i]->released) Remark(line, u"我方未出货"_s);
            result_.lines.push_back(std::move(line));
        }
    }

    Outcome OutcomeOf(Line& line) const {
        if ((columns_.weight >= 0 && !line.ours.weight) || (columns_.cost >= 0 && !line.ours.cost)) {
            Remark(line, u"我方的数字太大"_s);
            return Outcome::NotRead;
        }
        const bool weight =
            columns_.weight < 0 || Within(line.ours.weight, line.theirs.weight, columns_.weightTolerance);
        const bool cost =
            columns_.cost < 0 || Within(line.ours.cost, line.theirs.cost, columns_.costTolerance);
        if (!weight && cost) Remark(line, u"重量不符"_s);
        if (weight && !cost) Remark(line, u"费用不符"_s);
        if (!weight && !cost) Remark(line, u"重量、费用不符"_s);
        return weight && cost ? Outcome::Equal : Outcome::Different;
    }

    void TakeOurs(const Waybill& waybill) {
        const QString key = KeyOf(waybill);
        if (!waybill.released || (!key.isEmpty() && theirKeys_.contains(key))) return;
        Line line = LineOf(nullptr, &waybill);
        line.outcome = Outcome::OursOnly;
        if (key.isEmpty()) Remark(line, u"没有转单号"_s);
        result_.lines.push_back(std::move(line));
    }

    const BillColumns& columns_;
    const std::vector<Waybill>& ours_;
    BillReader reader_;
    QHash<QString, Waybills> ourKeys_;
    QHash<QString, Same> theirKeys_;
    Reconciliation result_;
};

/// The numbers of what is theirs only, with their lines.
QHash<QString, Line*> TheirsByKey(Reconciliation& result) {
    QHash<QString, Line*> lines;
    for (Line& line : result.lines) {
        const QString key = KeyOf(line.billNumber);
        // No statement takes an apostrophe.
        if (line.outcome == Outcome::TheirsOnly && !key.contains(u'\'')) lines[key] = &line;
    }
    return lines;
}

void RemarkRows(dao::Database& db, const QString& condition, bool byForwarding,
                const QHash<QString, Line*>& lines) {
    auto rows = db.ReadEngine(
        u"select B01.F1,B01.F102,B01.F101,M01.F2,B01.F202 from B01 left join M01 on "
        u"M01.F1=B01.F202 where "_s +
        condition);
    for (; !rows.Eof(); rows.MoveNext()) {
        Line* const line = lines.value(KeyOf(rows.Fields(byForwarding ? 1 : 0).Text()));
        if (!line || !line->remark.isEmpty()) continue;
        const QString code = rows.Fields(4).Text();
        const QString channel =
            code.isEmpty() ? u"没有渠道"_s : u"渠道 "_s + code + u'.' + rows.Fields(3).Text();
        line->remark = u"我方 %1，%2，%3"_s.arg(rows.Fields(0).Text(), rows.Fields(2).Text(), channel);
    }
}

}  // namespace

QString WordOf(Outcome outcome) {
    static const QString words[kOutcomes] = {u"一致"_s,     u"有差异"_s, u"我方独有"_s,
                                             u"渠道独有"_s, u"重复"_s,   u"未识别"_s};
    return words[static_cast<std::size_t>(outcome)];
}

Amount Difference(const Amount& ours, const Amount& theirs) {
    if (!ours || !theirs) return std::nullopt;
    return *theirs - *ours;
}

void Sum::Add(const Amount& amount) {
    value += amount.value_or(0);
    known = known || amount;
    unknown = unknown || !amount;
}

Sum& Sum::operator+=(const Sum& other) {
    value += other.value;
    known = known || other.known;
    unknown = unknown || other.unknown;
    return *this;
}

Sums& Sums::operator+=(const Sums& other) {
    lines += other.lines;
    ourWeight += other.ourWeight;
    theirWeight += other.theirWeight;
    ourCost += other.ourCost;
    theirCost += other.theirCost;
    costDifference += other.costDifference;
    return *this;
}

std::array<Sums, kOutcomes> Reconciliation::SumsOf() const {
    std::array<Sums, kOutcomes> all{};
    for (const Line& line : lines) {
        Sums& sums = all[static_cast<std::size_t>(line.outcome)];
        ++sums.lines;
        const bool isOurs = !line.number.isEmpty(), isTheirs = !line.billNumber.isEmpty();
        if (isOurs) sums.ourWeight.Add(line.ours.weight);
        if (isTheirs) sums.theirWeight.Add(line.theirs.weight);
        if (isOurs) sums.ourCost.Add(line.ours.cost);
        if (isTheirs) sums.theirCost.Add(line.theirs.cost);
        if (isOurs || isTheirs)
            sums.costDifference.Add(
                Difference(isOurs ? line.ours.cost : Amount(0), isTheirs ? line.theirs.cost : Amount(0)));
    }
    return all;
}

std::vector<Waybill> WaybillsOf(dao::Database& db, const QString& channel, QDate from, QDate to) {
    std::vector<Waybill> waybills;
    auto rows = db.OpenRecordset(
        u"select F1,F102,F101,F404,F507,F604 from B01 where F202=%1 and datediff('d','%2',F101)>=0 and "
        u"datediff('d','%3',F101)<=0 order by F101,F1"_s.arg(Quoted(channel), text::DateText(from),
                                                             text::DateText(to)));
    for (; !rows.Eof(); rows.MoveNext()) {
        const auto text = [&](int field) { return rows.Fields(field).Text(); };
        waybills.push_back({.number = text(0),
                            .forwarding = text(1),
                            .date = text(2),
                            .side = {StoredAmount(text(3)), StoredAmount(text(4))},
                            .released = waybills::IsReleased(text(5))});
    }
    rows.Close();
    return waybills;
}

Reconciliation Compare(const sheet::Sheet& bill, const BillColumns& columns,
                       const std::vector<Waybill>& ours) {
    return Comparison(bill, columns, ours).Run();
}

void RemarkElsewhere(dao::Database& db, Reconciliation& result, bool byForwarding) {
    const QHash<QString, Line*> lines = TheirsByKey(result);
    if (lines.isEmpty()) return;
    // No index serves the forwarding number, so that all are looked through once.
    if (byForwarding) return RemarkRows(db, u"B01.F102<>''"_s, byForwarding, lines);
    constexpr qsizetype together = 500;
    const QStringList keys = lines.keys();
    for (qsizetype first = 0; first < keys.size(); first += together)
        RemarkRows(db, u"B01.F1 in ('"_s + keys.mid(first, together).join(u"','"_s) + u"')"_s, byForwarding,
                   lines);
}

}  // namespace reconcile
