#include "accounts/ageing.h"

#include "platform/errors.h"
#include "platform/text/numbers.h"
#include "platform/text/stored_key.h"

#include <algorithm>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace accounts {
namespace {

enum Field { FieldUnit, FieldDate, FieldYF, FieldFK, FieldQM, FieldVoucher };
const QString Fields = u"TB1.F3,TB1.F2,TB1.YF,TB1.FK,TB1.QM"_s;
const QString FieldsOfCharges = Fields + u",TB1.F1"_s;

constexpr double Largest = 1e13;

[[noreturn]] void FailTooLarge() {
    throw RuntimeError(u"金额太大，无法分析帐龄！"_s);
}

void Add(Cents& sum, Cents amount) {
    if (__builtin_add_overflow(sum, amount, &sum)) FailTooLarge();
}

/// The day of a stored date, with or without a time of day, as eight decimal digits: most are compared alone.
int DigitsOf(QStringView stored) {
    int digits = 0;
    for (const QChar c : stored.first(std::min<qsizetype>(stored.size(), 10)))
        if (c != u'-') digits = digits * 10 + (c.unicode() - u'0');
    return digits;
}

QDate DayOf(int digits) {
    return QDate(digits / 10000, digits / 100 % 100, digits % 100);
}

std::size_t BucketOf(int age) {
    return static_cast<std::size_t>(std::ranges::lower_bound(LastDayOfBucket, age) - LastDayOfBucket.begin());
}

/// What raises the balance of one row: a charge, or a negative payment.
struct Raise {
    int date;  ///< eight decimal digits
    double amount;
    std::size_t voucher;  ///< its place among the vouchers, where they are kept
};

/// The rows of one counterparty as they come, in the ledger's order.
class Chain {
  public:
    explicit Chain(bool vouchers) : vouchers_(vouchers) {}

    void Begin(QString unit) {
        unit_ = std::move(unit);
        raises_.clear();
        voucherTexts_.clear();
        balance_ = moved_ = 0;
    }

    const QString& Unit() const { return unit_; }
    const QString& Voucher(const Raise& raise) const { return voucherTexts_[raise.voucher]; }

    void Take(const dao::Recordset& rows) {
        const double raised = rows.Fields(FieldYF).Number();
        const double lowered = rows.Fields(FieldFK).Number();
        // As the chain itself is rolled, so that a refreshed balance is met to the last digit.
        moved_ = moved_ + raised - lowered;
        balance_ = rows.Fields(FieldQM).Number();
        if (raised > 0) Raised(rows, raised);
        if (lowered < 0) Raised(rows, -lowered);
    }

    /// Gives each open charge, the newest first, to `open`.
    template <class Open>
    AgeingLine Finish(const AgeingScope& scope, Open open) {
        AgeingLine line{.unit = unit_, .balance = ToCents(balance_)};
        const Cents moved = ToCents(moved_);
        line.difference = line.balance - moved;
        if (moved <= 0)
            line.prepaid = moved;
        else
            Share(moved, scope, line, open);
        return line;
    }

  private:
    void Raised(const dao::Recordset& rows, double amount) {
        raises_.push_back({.date = DigitsOf(rows.Fields(FieldDate).Text()),
                           .amount = amount,
                           .voucher = voucherTexts_.size()});
        if (vouchers_) voucherTexts_.push_back(rows.Fields(FieldVoucher).Text());
    }

    /// Payments cover the oldest charges, so what is open are the newest ones up to that sum. Sums of charges
    /// are rounded and not the charges, so that the shares add up to it.
    template <class Open>
    void Share(Cents total, const AgeingScope& scope, AgeingLine& line, Open open) {
        if (!std::ranges::is_sorted(raises_, {}, &Raise::date))
            std::ranges::stable_sort(raises_, {}, &Raise::date);
        double sum = 0;
        Cents shared = 0;
        for (auto raise = raises_.rbegin(); raise != raises_.rend() && shared < total; ++raise) {
            sum += raise->amount;
            const bool last = raise + 1 == raises_.rend();
            const Cents upTo = last || sum >= Largest ? total : std::min(total, ToCents(sum));
            if (upTo == shared) continue;
            const QDate date = DayOf(raise->date);
            const int age = static_cast<int>(date.daysTo(scope.day));
            line.buckets[BucketOf(age)] += upTo - shared;
            if (age > scope.overdueAfter) line.overdue += upTo - shared;
            line.oldest = date;
            line.oldestAge = age;
            open(*raise, age, upTo - shared);
            shared = upTo;
        }
    }

    const bool vouchers_;
    QString unit_;
    std::vector<Raise> raises_;
    std::vector<QString> voucherTexts_;
    double balance_ = 0;
    double moved_ = 0;
};

/// One pass: `finish` is called behind the last row of each counterparty.
void ReadLines(dao::Recordset& rows, Chain& chain, const std::function<void()>& finish) {
    bool begun = false;
    for (; !rows.Eof(); rows.MoveNext()) {
        QString unit = rows.Fields(FieldUnit).Text();
        if (!begun || !text::SameAsStored(unit, chain.Unit())) {
            if (begun) finish();
            chain.Begin(std::move(unit));
            begun = true;
        }
        chain.Take(rows);
    }
    if (begun) finish();
}

dao::Recordset RowsOf(dao::Database& db, const QString& fields, const AgeingScope& scope,
                      const QString& unit) {
    return db.OpenRecordset(
        LedgerRowsStatement(fields, {.LB = scope.LB, .from = {}, .to = scope.day, .unit = unit}),
        dao::RecordsetType::ForwardOnly);
}

}  // namespace

Cents ToCents(double yuan) {
    if (!(std::abs(yuan) < Largest)) FailTooLarge();
    const double cents = yuan * 100;
    const double near = std::round(cents);
    constexpr double surely = 1e-3;
    if (std::abs(cents - near) < surely) return static_cast<Cents>(near);
    QString digits = text::FormatFixed(yuan, 2);
    return digits.remove(u'.').toLongLong();
}

QString CentsText(Cents amount) {
    const auto size =
        amount < 0 ? 0 - static_cast<std::uint64_t>(amount) : static_cast<std::uint64_t>(amount);
    return (amount < 0 ? u"-"_s : QString()) + QString::number(size / 100) + u'.' +
           QString::number(size % 100).rightJustified(2, u'0');
}

QString AmountText(Cents amount) {
    return amount == 0 ? QString() : CentsText(amount);
}

Cents AgeingLine::Open() const {
    Cents open = 0;
    for (const Cents bucket : buckets) Add(open, bucket);
    return open;
}

std::vector<AgeingLine> Age(dao::Database& db, const AgeingScope& scope) {
    auto rows = RowsOf(db, Fields, scope, scope.unit);
    std::vector<AgeingLine> lines;
    Chain chain(false);
    ReadLines(rows, chain, [&] {
        AgeingLine line = chain.Finish(scope, [](const Raise&, int, Cents) {});
        if (line.balance != 0 || line.difference != 0) lines.push_back(std::move(line));
    });
    std::ranges::stable_sort(lines, std::ranges::greater(), &AgeingLine::balance);
    return lines;
}

AgeingLine SumOf(const std::vector<AgeingLine>& lines) {
    AgeingLine sum;
    for (const AgeingLine& line : lines) {
        Add(sum.balance, line.balance);
        for (std::size_t i = 0; i < AgeBuckets; ++i) Add(sum.buckets[i], line.buckets[i]);
        Add(sum.prepaid, line.prepaid);
        Add(sum.difference, line.difference);
        Add(sum.overdue, line.overdue);
    }
    return sum;
}

UnitAgeing AgeUnit(dao::Database& db, const AgeingScope& scope, const QString& unit) {
    auto rows = RowsOf(db, FieldsOfCharges, scope, PatternOf(unit));
    UnitAgeing ageing{.line = {.unit = unit}, .charges = {}};
    Chain chain(true);
    ReadLines(rows, chain, [&] {
        if (!text::SameAsStored(chain.Unit(), unit)) return;
        ageing.line = chain.Finish(scope, [&](const Raise& raise, int age, Cents open) {
            ageing.charges.push_back({.voucher = chain.Voucher(raise),
                                      .date = DayOf(raise.date),
                                      .age = age,
                                      .amount = ToCents(raise.amount),
                                      .open = open});
        });
    });
    std::ranges::reverse(ageing.charges);
    return ageing;
}

}  // namespace accounts
