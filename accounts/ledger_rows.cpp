#include "accounts/ledger_rows.h"

#include "platform/text/dates.h"
#include "platform/text/numbers.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace accounts {
namespace {

constexpr int Decimals = 2;

/// Fields of both statements; the detail's has the business type behind them.
enum Field { FieldUnit, FieldName2, FieldVoucher, FieldQC = 6, FieldYF, FieldFK, FieldQM, FieldBusiness };

QString Money(double value) {
    return text::FormatFixed(value, Decimals);
}

/// Posted rows of the period, in the order that both ledgers need.
QString Conditions(const LedgerScope& scope) {
    QString sql = u" AND TB1.F6<>'' and (not TB1.F6 is null) and TB1.K=0 and "_s;
    if (scope.from.isValid())
        sql += u"datediff('d','"_s + text::DateText(scope.from) + u"',TB1.F2)>=0 AND  "_s;
    sql += u"datediff('d','"_s + text::DateText(scope.to) + u"',TB1.F2)<=0 "_s;
    if (!text::Trim(scope.unit).isEmpty()) sql += u" and TB1.F3 like '"_s + scope.unit + u"' "_s;
    return sql + u" order by TB1.F3,TB1.SN"_s;
}

/// The lines of the detail ledger as they grow. A first group without a name has no opening balance, since
/// nothing distinguishes it from no group; required by the business.
class Detail {
  public:
    explicit Detail(LedgerLines& lines) : lines_(lines) {}

    void Add(const dao::Recordset& rows) {
        const QString unit = rows.Fields(FieldUnit).Text();
        if (unit != unit_) Begin(unit, rows.Fields(FieldQC).Number());
        lines_.Cell(count_, Unit, unit_);
        lines_.Cell(count_, Voucher, rows.Fields(FieldVoucher).Text());
        lines_.Cell(count_, Business, rows.Fields(FieldBusiness).Text());
        raised_ += ShowMovement(Raised, rows.Fields(FieldYF).Number());
        lowered_ += ShowMovement(Lowered, rows.Fields(FieldFK).Number());
        closing_ = Money(rows.Fields(FieldQM).Number());
        lines_.Cell(count_, Closing, closing_);
        ++count_;
    }

    void CloseGroup() {
        lines_.Cell(count_, Unit, unit_);
        lines_.Cell(count_, Business, u" 合  计 "_s);
        lines_.Cell(count_, Opening, opening_);
        lines_.Cell(count_, Raised, Money(raised_));
        lines_.Cell(count_, Lowered, Money(lowered_));
        lines_.Cell(count_, Closing, closing_);
        lines_.Total(count_++);
    }

  private:
    void Begin(const QString& unit, double balance) {
        if (count_ > 0) CloseGroup();
        unit_ = unit;
        opening_ = Money(balance);
        lines_.Cell(count_, Opening, opening_);
        raised_ = lowered_ = 0;
    }

    /// Gives the value as it is shown; a row shows only the side that it moved.
    double ShowMovement(int col, double value) {
        if (value == 0) return 0;
        const QString shown = Money(value);
        const double read = text::Val(shown);
        if (read != 0) lines_.Cell(count_, col, shown);
        return read;
    }

    LedgerLines& lines_;
    int count_ = 0;
    QString unit_;
    QString opening_ = Money(0);  ///< of the group's first row in the period
    QString closing_;             ///< of the group's last row so far
    double raised_ = 0;
    double lowered_ = 0;
};

struct Balances {
    double opening = 0;
    double raised = 0;
    double lowered = 0;
    double closing = 0;
};

void WriteBalances(LedgerLines& lines, int line, const Balances& sums) {
    lines.Cell(line, Opening, Money(sums.opening));
    lines.Cell(line, Raised, Money(sums.raised));
    lines.Cell(line, Lowered, Money(sums.lowered));
    lines.Cell(line, Closing, Money(sums.closing));
}

}  // namespace

QString PatternOf(const QString& unit) {
    QString pattern;
    for (const QChar c : unit) {
        if (c == u'\'')
            pattern += u'?';
        else if (QStringView(u"*?#[").contains(c))
            pattern += u'[' + QString(c) + u']';
        else
            pattern += c;
    }
    return pattern;
}

QString DetailStatement(const LedgerScope& scope) {
    return u"select TB1.F3,'' as mc,TB1.F1,TB1.LB,'','',TB1.QC,TB1.YF,TB1.FK,TB1.QM,TB1.S2 as yewu FROM TB1  WHERE TB1.LB"_s +
           (scope.LB == 10 ? u">0 "_s : u"<0 "_s) + Conditions(scope);
}

QString SummaryStatement(const LedgerScope& scope) {
    return LedgerRowsStatement(u"TB1.F3,'' as mc ,TB1.F1,TB1.LB,'','',TB1.QC,TB1.YF,TB1.FK,TB1.QM"_s, scope);
}

QString LedgerRowsStatement(const QString& fields, const LedgerScope& scope) {
    return u"select "_s + fields + u" FROM TB1  WHERE TB1.lb"_s + (scope.LB < 1 ? u"<0 "_s : u">0 "_s) +
           Conditions(scope);
}

void BuildDetail(dao::Recordset& rows, LedgerLines& lines) {
    Detail detail(lines);
    for (; !rows.Eof(); rows.MoveNext()) detail.Add(rows);
    detail.CloseGroup();
}

void BuildSummary(dao::Recordset& rows, LedgerLines& lines) {
    QString unit;
    Balances one, all;
    int line = 0;
    const auto write = [&] {
        lines.Cell(line, Unit, unit);
        WriteBalances(lines, line++, one);
        all.opening += one.opening;
        all.raised += one.raised;
        all.lowered += one.lowered;
        all.closing += one.closing;
    };
    for (; !rows.Eof(); rows.MoveNext()) {
        if (const QString next = rows.Fields(FieldUnit).Text(); next != unit) {
            if (!unit.isEmpty()) write();  // rows without a name are lost where others follow
            unit = next;
            one = {.opening = rows.Fields(FieldQC).Number()};
        }
        one.raised += rows.Fields(FieldYF).Number();
        one.lowered += rows.Fields(FieldFK).Number();
        one.closing = rows.Fields(FieldQM).Number();
    }
    write();
    WriteBalances(lines, line, all);
    lines.Total(line);
}

}  // namespace accounts
