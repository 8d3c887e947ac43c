#include "demo/channel_bill.h"

#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/flex_grid.h"
#include "platform/workbook/workbook.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace demo {
namespace {

/// The channel's own lines of some days, with what goes wrong in such bills.
void WriteBill(const QString& file) {
    QFile::remove(file);
    workbook::Writer book(workbook::Format::Biff8, u"十一月"_s);
    const auto add = [&](const QStringList& cells) {
        book.NextRow();
        for (const QString& cell : cells) book.Add(cell);
    };
    add({u"晨星快件（样例）　十一月对帐单"_s});
    add({u"运单号"_s, u"日期"_s, u"目的地"_s, u"计费重(KG)"_s, u"金额(元)"_s});
    auto rows = Db->OpenRecordset(
        u"select F1,F101,F2031,F404,F507 from B01 where F202='Q1' and "
        u"datediff('d','2024-11-11',F101)>=0 and datediff('d','2024-11-23',F101)<=0 "
        u"and F604<>'未审核' and F604<>'未出货' order by F101,F1"_s);
    for (int line = 0; !rows.Eof(); rows.MoveNext(), ++line) {
        QStringList cells;
        for (int field = 0; field < 5; ++field) cells += rows.Fields(field).Text();
        if (line == 3) cells[4] = u"¥1,250.00"_s;
        if (line == 7) cells[3] = QString::number(cells[3].toDouble() + 1);
        if (line == 11) cells[4] = u"按合同"_s;
        if (line != 5) add(cells);
        if (line == 9) add(cells);
    }
    add({u"CX24119999"_s, u"2024-11-21"_s, u"柏林"_s, u"4"_s, u"520"_s});
    add({u"合计"_s});
    book.Save(file);
}

}  // namespace

void PlayChannelBill(Operator& op, const QString& folder) {
    const QString file = folder + u"/渠道帐单.xls"_s;
    op.Do(u"渠道的帐单"_s, [file] { WriteBill(file); });
    op.Press(Qt::Key_K, Qt::ControlModifier);
    op.Type(u"qdzd"_s);
    op.Press(Qt::Key_Return);
    op.ExpectFocus(u"Cmb(0)"_s);
    op.Type(u"Q1"_s);
    op.Press(Qt::Key_Return);
    op.Type(u"20241111"_s);
    op.Press(Qt::Key_Return);
    op.Type(u"20241123"_s);
    op.EnterTo(u"Cmd(0)"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"FileDialog"_s);
    op.Type(file);
    op.Press(Qt::Key_Return);
    op.ExpectStatus(u"帐单：共 39 行"_s);
    op.ExpectFocus(u"Cmb(3)"_s);
    op.EnterTo(u"Cmd(1)"_s);
    op.Picture(u"channel-bill-file"_s, u"渠道帐单核对：帐单和它的各列"_s);
    op.Press(Qt::Key_Return);
    op.ExpectStatus(u"核对结果：共 37 行 当前为第 1 行 帐单中略过 1 行合计和空行"_s);
    op.Picture(u"channel-bill"_s, u"渠道帐单核对：结果"_s);
    op.TabTo(u"Cmb(6)"_s);
    op.Press(Qt::Key_Down);
    op.Press(Qt::Key_Down);
    op.Picture(u"channel-bill-different"_s, u"渠道帐单核对：只看有差异的"_s);
    op.Command(u"R"_s);
}

}  // namespace demo
