#include "demo/summary.h"

#include "demo/day_entries.h"
#include "demo/rows.h"
#include "demo/sample_masters.h"
#include "platform/errors.h"
#include "platform/text/numbers.h"
#include "schema/names.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

struct Column {
    QString title;
    int width;  ///< in Latin characters; a Chinese character counts as two
    bool right = false;
    bool money = false;
};

int WidthOf(const QString& text) {
    int width = 0;
    for (const QChar c : text) width += c.unicode() < 0x2000 ? 1 : 2;
    return width;
}

QString Cell(const Column& column, const QString& text) {
    const QString space(qMax(0, column.width - WidthOf(text)), u' ');
    return (column.right ? space + text : text + space) + u"  "_s;
}

QString Line(const QList<Column>& columns, const QStringList& cells) {
    QString line;
    for (int i = 0; i < columns.size(); ++i) line += Cell(columns[i], cells[i]);
    while (line.endsWith(u' ')) line.chop(1);
    return line + u'\n';
}

QString Table(const QList<Column>& columns, const QStringList& rows) {
    QStringList titles;
    for (const Column& column : columns) titles << column.title;
    QString table = Line(columns, titles);
    for (const QString& row : rows) {
        QStringList cells = row.split(u'|');
        for (int i = 0; i < columns.size(); ++i)
            if (columns[i].money) cells[i] = text::FormatFixed(text::Val(cells[i]), 2);
        table += Line(columns, cells);
    }
    return table;
}

QString Waybills(dao::Database& db) {
    const QList<Column> columns = {{u"速递单号"_s, 12},
                                   {u"寄件日期"_s, 10},
                                   {u"类型"_s, 4},
                                   {u"收重KG"_s, 6, true},
                                   {u"付款"_s, 4},
                                   {u"基本费用"_s, 8, true, true},
                                   {u"附加"_s, 7, true, true},
                                   {u"燃油费率"_s, 8, true},
                                   {u"其它"_s, 7, true, true},
                                   {u"总计费用"_s, 9, true, true},
                                   {u"出货成本"_s, 9, true, true},
                                   {u"审核"_s, 6},
                                   {u"计价"_s, 0}};
    QStringList rows;
    for (const Consignment& c : Consignments())
        rows +=
            Rows(db,
                 u"select F1,F101,F301,F402,F501,F502,F503,F505,F508,F504,F507,F604 from B01 where F1='"_s +
                     c.number + u"'"_s)
                .join(QString()) +
            u'|' + c.rule;
    return Table(columns, rows);
}

/// The chain in the order of the journal. The opening balance of every row must equal the closing balance of
/// the row before.
QString Chain(dao::Database& db, const QString& counterparty) {
    const QStringList rows = Rows(db, u"select SN,F1,F2,S2,QC,YF,QM from TB1 where F3='"_s + counterparty +
                                          u"' and SN<>0 order by SN"_s);
    double balance = 0;
    for (const QString& row : rows) {
        const QStringList cells = row.split(u'|');
        const double opening = text::Val(cells[4]);
        const double closing = text::Val(cells[6]);
        const double raised = text::Val(cells[5]);
        const auto shown = [](double amount) { return text::GeneralText(amount); };
        if (shown(opening) != shown(balance) || shown(opening + raised) != shown(closing))
            throw RuntimeError(u"余额不连续："_s + row);
        balance = closing;
    }
    const QList<Column> columns = {{u"序号SN"_s, 8, true},
                                   {u"单号"_s, 14},
                                   {u"日期"_s, 10},
                                   {u"业务类型"_s, 8},
                                   {u"期初QC"_s, 10, true, true},
                                   {u"增加YF"_s, 10, true, true},
                                   {u"期末QM"_s, 10, true, true}};
    return Table(columns, rows);
}

}  // namespace

QString Summary(const QString& file, const std::vector<Screen::Kept>& pictures) {
    const auto db = dao::Database::Open(file, schema::kConnect.toString());
    QString text = sample::kCompany + u"：演示结果\n数据文件 "_s + file + u"\n"_s;
    text += u"\n当天的速递单（金额单位：元）\n"_s + Waybills(*db);
    text += u"\n应收往来："_s + kCustomer + u'\n' + Chain(*db, kCustomer);
    text += u"\n应付往来："_s + kChannel + u'\n' + Chain(*db, kChannel);
    text +=
        u"\n序号计数器 "_s + Rows(*db, u"select Setval from SysInfo where ID=100"_s).join(QString()) + u'\n';
    text += u"\n图片（标题栏由演示程序画出，窗口内容为程序本身的画面）\n"_s;
    for (const auto& picture : pictures) text += Cell({{}, 36}, picture.file) + picture.caption + u'\n';
    return text;
}

}  // namespace demo
