#include "reports/report_form.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/paint.h"
#include "platform/controls/wait.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "records/filter_strip.h"
#include "reports/printing.h"
#include "reports/report_rows.h"

#include <QScopeGuard>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using reports::Column;

namespace {

/// The one code that is refused as invalid; any other that no row has gives an empty list. Required by the
/// business.
const QString NotFound = u"NoFound"_s;

Qt::Alignment AlignmentOf(Column::Kind kind) {
    switch (kind) {
        case Column::Kind::Letter:
            return Qt::AlignCenter;
        case Column::Kind::Text:
            return Qt::AlignLeft;
        default:
            return Qt::AlignRight;
    }
}

}  // namespace

ReportForm::ReportForm(const reports::Settings& settings)
    : ChildForm(settings.form, settings.caption), settings_(settings), GD(new controls::FlexGrid) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 1);
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(settings.caption);
    GD->setProperty("edge", u"none"_s);
    const int cols = static_cast<int>(settings.columns.size());
    GD->SetCols(cols);
    for (int col = 0; col < cols; ++col)
        GD->SetColAlignment(col, AlignmentOf(settings.columns[static_cast<std::size_t>(col)].kind));
    if (settings.position != reports::Position::Never) GD->Click = [this] { ShowStatus(); };
    if (settings.position == reports::Position::Always) GD->RowChange = [this] { ShowStatus(); };
    SetCommands();
}

QWidget* ReportForm::MakeStrip() {
    auto* strip = new FilterStrip(*this);
    if (!settings_.choice.table.isEmpty()) {
        Cmb = new controls::ComboBox;
        strip->Add(settings_.choice.caption, u"Cmb"_s, Cmb, FilterStrip::kChoiceWidth);
    }
    const auto addDate = [&](const QString& caption, const QString& name) {
        DTP.push_back(new controls::DTPicker);
        strip->Add(caption, name, DTP.back(), FilterStrip::kDateWidth);
    };
    if (settings_.oneDay) {
        addDate(u"出货日期"_s, u"DTP"_s);
    } else {
        addDate(u"由"_s, u"DTP(0)"_s);
        addDate(u"至"_s, u"DTP(1)"_s);
    }
    strip->AddButton(u"刷新数据"_s)->Click = [this] { Refresh(); };
    return strip;
}

void ReportForm::SetCommands() {
    using When = CommandRow::When;
    std::vector<CommandRow> prints;
    for (const reports::Print& print : settings_.prints)
        prints.push_back({print.command, print.caption, When::Always, [this, &print] { PrintList(print); }});
    if (prints.size() > 1)
        prints = {{.name = u"Menu_P"_s, .caption = u"&P.打印"_s, .when = When::Always, .items = prints}};
    commands_.Fill(MenuBar(),
                   {{u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Always, [this] { ExportGrid(*GD); }},
                    prints.front(),
                    {u"Menu_R"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }}});
}

void ReportForm::Load() {
    const QDate today = sys::Today();
    if (!settings_.oneDay) DTP.front()->SetValue(today.addMonths(-1));
    DTP.back()->SetValue(today);
    if (Cmb) FillChoice();
    DressGrid();
}

void ReportForm::Activated() {
    if (settings_.position == reports::Position::Always) ShowStatus();
}

QWidget* ReportForm::FirstFocus() const {
    if (Cmb) return Cmb;
    return DTP.front();
}

void ReportForm::FillChoice() {
    auto rows = Db->OpenRecordset(u"select F1,F2 from "_s + settings_.choice.table + u" order by F1"_s);
    for (; !rows.Eof(); rows.MoveNext()) Cmb->AddItem(rows.Fields(0).Text() + u'.' + rows.Fields(1).Text());
    rows.Close();
}

void ReportForm::DressGrid() {
    GD->Clear();
    GD->SetRows(2);
    for (int col = 0; col < GD->Cols(); ++col)
        GD->SetTextMatrix(0, col, settings_.columns[static_cast<std::size_t>(col)].header);
    std::vector<int> shares;
    for (const Column& column : settings_.columns) shares.push_back(column.share);
    GD->ShareWidths(shares);
    RecCount = 0;
}

// ---------------------------------------------------------------- the list

QString ReportForm::ChosenCode() const {
    const QString code = CodePart(Cmb->Text());
    if (text::Trim(Cmb->Text()).isEmpty()) sys::Inform(settings_.choice.missing, u"提示"_s);
    if (code != NotFound) return code;
    sys::Inform(settings_.choice.invalid, MsgTitle);
    return {};
}

reports::Scope ReportForm::Scope() const {
    return {.from = text::DateText(DTP.front()->Value()),
            .to = text::DateText(DTP.back()->Value()),
            .code = code_};
}

void ReportForm::Refresh() {
    if (Cmb) {
        const QString code = ChosenCode();
        if (code.isEmpty()) return;
        code_ = code;
    }
    DressGrid();
    const controls::WaitPointer wait;
    auto rows = Db->OpenRecordset(settings_.statement(Scope()));
    if (const int count = CountRows(rows); count > 0) Fill(rows, count);
    rows.Close();
    if (settings_.position == reports::Position::Always) ShowStatus();
}

void ReportForm::Fill(dao::Recordset& rows, int count) {
    GD->BeginLoad(count + 1);
    const auto loaded = qScopeGuard([this] { GD->EndLoad(); });
    reports::ReadList(rows, count, settings_.columns,
                      [this](int row, int col, QString cell) { GD->LoadCell(row, col, std::move(cell)); });
    for (int col = 0; col < GD->Cols(); ++col) {
        GD->SetCellColor(count + 1, col, controls::paint::kTotal);
        GD->SetCellBold(count + 1, col, true);
    }
    RecCount = count;
}

void ReportForm::ShowStatus() const {
    const bool empty = RecCount == 0 && !settings_.emptyStatus.isEmpty();
    TheFrame().SetPanel(MForm::PositionPanel, empty ? settings_.emptyStatus
                                                    : u"共 "_s + QString::number(RecCount) +
                                                          u" 条记录 当前为第 "_s +
                                                          QString::number(GD->Row()) + u" 条"_s);
}

// ---------------------------------------------------------------- the print

void ReportForm::PrintList(const reports::Print& print) {
    if (GD->TextMatrix(1, 0).isEmpty()) return sys::Inform(u"无数据可打印"_s, MsgTitle);
    const controls::WaitPointer wait;
    RunReport(print.layout,
              reports::PreparePrint(*Db, settings_, print, Scope(), GD->Rows() - 1,
                                    [this](int row, int col) { return GD->TextMatrix(row + 1, col); }));
}
