#include "reports/batch_form.h"

#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "records/filter_strip.h"
#include "reports/printing.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;
using reports::BatchCustomer;
using reports::BatchResult;

namespace {

const QString Caption = u"批量对帐单"_s;
const QString Marked = u"√"_s;
const QString NotMade = u"未生成"_s;                 // because the run had stopped before
const QString FolderSetting = u"StatementFolder"_s;  // in the user's settings: the folder chosen last
constexpr int FolderWidth = 420;
constexpr qsizetype MostNamed = 8;  // failures in the last message; the list and the workbook have all

enum Column { Mark, Code, Name, Waybills, Weight, Charge, Result, Columns };

constexpr struct {
    QStringView header;
    Qt::AlignmentFlag alignment;
    int share;
} ListColumns[Columns] = {{u"选择", Qt::AlignHCenter, 5},   {u"客户编码", Qt::AlignLeft, 10},
                          {u"客户名称", Qt::AlignLeft, 22}, {u"票数", Qt::AlignRight, 7},
                          {u"重量", Qt::AlignRight, 9},     {u"运费", Qt::AlignRight, 11},
                          {u"结果", Qt::AlignLeft, 36}};

QString Named(const BatchCustomer& customer) {
    return customer.code + u'.' + customer.name;
}

}  // namespace

/// What has become of the chosen customers.
struct BatchStatements::Run {
    std::vector<BatchResult> results;
    QStringList failures;  ///< customers with the reason
    int made = 0;
    bool stopped = false;  ///< by the operator, or because the folder takes no files
};

BatchStatements::BatchStatements()
    : ChildForm(u"BatchStatements"_s, Caption),
      GD(new controls::FlexGrid),
      Txt(new controls::LineBox),
      CmdFolder(nullptr),
      CmdGenerate(nullptr) {
    MakeList();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 1);
    column->addWidget(MakeFolderStrip());
    using When = CommandRow::When;
    commands_.Fill(MenuBar(),
                   {{u"Menu_All"_s, u"&A.全选"_s, When::Always, [this] { ChooseAll(true); }},
                    {u"Menu_None"_s, u"&N.全不选"_s, When::Always, [this] { ChooseAll(false); }},
                    {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Always, [this] { ExportGrid(*GD); }},
                    {u"Menu_R"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }}});
}

QWidget* BatchStatements::MakeStrip() {
    auto* strip = new FilterStrip(*this);
    strip->AddPeriod(DTP);
    strip->AddButton(u"刷新数据"_s)->Click = [this] { Refresh(); };
    return strip;
}

QWidget* BatchStatements::MakeFolderStrip() {
    auto* strip = new FilterStrip;
    strip->Add(u"保存到文件夹"_s, u"Txt(0)"_s, Txt, FolderWidth);
    CmdFolder = strip->AddButton(u"浏览"_s);
    CmdFolder->setObjectName(u"Cmd(0)"_s);
    CmdFolder->setAccessibleName(u"浏览文件夹"_s);
    CmdFolder->setDefault(false);
    CmdFolder->setProperty("kind", u"inline"_s);
    CmdFolder->Click = [this] { ChooseFolder(); };
    CmdGenerate = strip->AddButton(u"生成对帐单"_s);
    CmdGenerate->setObjectName(u"Cmd(1)"_s);
    CmdGenerate->Click = [this] { Generate(); };
    return strip;
}

void BatchStatements::MakeList() {
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(u"有月结运单的客户"_s);
    GD->setProperty("edge", u"none"_s);
    GD->SetCols(Columns);
    std::vector<int> shares;
    for (int col = 0; col < Columns; ++col) {
        GD->SetTextMatrix(0, col, ListColumns[col].header.toString());
        GD->SetColAlignment(col, ListColumns[col].alignment);
        shares.push_back(ListColumns[col].share);
    }
    GD->ShareWidths(shares);
    GD->RowChange = [this] { ShowStatus(); };
    GD->KeyPressed = [this](controls::KeyPress& key) {
        if (key.key != Qt::Key_Space) return;
        key.taken = true;
        if (!key.repeats) ToggleSelected();
    };
    GD->Click = [this] {
        if (GD->Col() == Mark) ToggleSelected();
    };
}

void BatchStatements::Load() {
    const QDate today = sys::Today();
    DTP.front()->SetValue(today.addMonths(-1));
    DTP.back()->SetValue(today);
    Txt->SetText(sys::seams().readSetting(FolderSetting));
    Refresh();
}

// ---------------------------------------------------------------- the list

reports::Scope BatchStatements::ShownPeriod() const {
    return {.from = text::DateText(DTP.front()->Value()), .to = text::DateText(DTP.back()->Value())};
}

void BatchStatements::Refresh() {
    const controls::WaitPointer wait;
    period_ = ShownPeriod();
    customers_ = reports::CustomersOf(*Db, period_);
    GD->BeginLoad(static_cast<int>(customers_.size()));
    int row = 0;
    for (const BatchCustomer& customer : customers_) {
        GD->LoadCell(row, Mark, Marked);
        GD->LoadCell(row, Code, customer.code);
        GD->LoadCell(row, Name, customer.name);
        GD->LoadCell(row++, Waybills, QString::number(customer.waybills));
    }
    GD->EndLoad();
    ShowStatus();
}

void BatchStatements::ShowStatus() const {
    TheFrame().SetPanel(MForm::PositionPanel,
                        customers_.empty() ? u"该日期范围没有月结的运单"_s
                                           : u"共 "_s + QString::number(customers_.size()) +
                                                 u" 个客户 已选 "_s + QString::number(Chosen()) + u" 个"_s);
}

bool BatchStatements::IsChosen(std::size_t index) const {
    return GD->TextMatrix(static_cast<int>(index) + 1, Mark) == Marked;
}

int BatchStatements::Chosen() const {
    int chosen = 0;
    for (std::size_t index = 0; index < customers_.size(); ++index) chosen += IsChosen(index) ? 1 : 0;
    return chosen;
}

void BatchStatements::Choose(std::size_t index, bool chosen) {
    GD->SetTextMatrix(static_cast<int>(index) + 1, Mark, chosen ? Marked : QString());
}

void BatchStatements::ChooseAll(bool chosen) {
    for (std::size_t index = 0; index < customers_.size(); ++index) Choose(index, chosen);
    ShowStatus();
}

/// The highlighted rows, all of them to what the first one becomes.
void BatchStatements::ToggleSelected() {
    const int first = std::min(GD->Row(), GD->RowSel()) - 1, last = std::max(GD->Row(), GD->RowSel()) - 1;
    if (first < 0 || last >= static_cast<int>(customers_.size())) return;
    const bool chosen = !IsChosen(static_cast<std::size_t>(first));
    for (int index = first; index <= last; ++index) Choose(static_cast<std::size_t>(index), chosen);
    ShowStatus();
}

// ---------------------------------------------------------------- the run

void BatchStatements::ChooseFolder() {
    const QString folder = sys::AskFile({.kind = sys::FileRequest::Kind::Folder,
                                         .title = u"对帐单保存到..."_s,
                                         .proposed = Txt->Text(),
                                         .pattern = {}});
    if (folder.isEmpty()) return;
    Txt->SetText(folder);
    CmdGenerate->SetFocus();
}

bool BatchStatements::Ready() const {
    const QString folder = text::Trim(Txt->Text());
    const QFileInfo info(folder);
    const reports::Scope shown = ShownPeriod();
    QString refusal;
    if (shown.from != period_.from || shown.to != period_.to)
        refusal = u"日期已改变，请先刷新数据！"_s;
    else if (Chosen() == 0)
        refusal = u"请选择客户!"_s;
    else if (folder.isEmpty())
        refusal = u"请首先选择文件夹!"_s;
    else if (!info.isAbsolute() || !info.isDir())
        refusal = u"文件夹“"_s + folder + u"”不存在！"_s;
    if (refusal.isEmpty()) return true;
    sys::Inform(refusal, MsgTitle);
    return false;
}

void BatchStatements::Generate() {
    if (!Ready()) return;
    const QString folder = text::Trim(Txt->Text());
    sys::seams().writeSetting(FolderSetting, folder);
    std::optional<reports::StatementBatch> batch;
    try {
        batch.emplace(*Db, AppFolder, folder, period_);
    } catch (const RuntimeError& error) {
        return sys::Inform(error.Text(), MsgTitle);
    }
    Run run;
    {
        const auto restored = qScopeGuard([this] { setWindowTitle(Caption); });
        const controls::WaitPointer wait;
        WriteChosen(*batch, run);
    }
    Report(*batch, run);
}

/// Each customer is a command of its own, so that other programs on the file come to their turn between two.
void BatchStatements::WriteChosen(reports::StatementBatch& batch, Run& run) {
    const int chosen = Chosen();
    int begun = 0;
    for (std::size_t index = 0; index < customers_.size(); ++index) {
        if (!IsChosen(index)) continue;
        const BatchCustomer& customer = customers_[index];
        BatchResult result{.customer = customer, .refusal = NotMade};
        if (!run.stopped) {
            setWindowTitle(u"正在生成 %1/%2"_s.arg(++begun).arg(chosen));
            TheFrame().SetPanel(MForm::PositionPanel, u"正在生成 "_s + Named(customer) + u"　按 Esc 停止"_s);
            run.stopped = controls::EscWasPressed();
        }
        if (!run.stopped) {
            try {
                result = batch.Write(customer);
                run.stopped = result.folderRefuses;
                sys::CloseCommand();
            } catch (const sys::CommandGivenUp&) {
                run.stopped = true;
            } catch (const DatabaseError& error) {
                // What is lost is the work table's rows, which no file needs any more.
                run.stopped = true;
                run.failures += Named(customer) + u"："_s + error.Text();
            }
        }
        if (result.refusal.isEmpty())
            ++run.made;
        else if (result.refusal != NotMade)
            run.failures += Named(customer) + u"："_s + result.refusal;
        ShowResult(index, result);
        run.results.push_back(std::move(result));
    }
}

void BatchStatements::ShowResult(std::size_t index, const BatchResult& result) {
    const int row = static_cast<int>(index) + 1;
    const bool made = result.refusal.isEmpty();
    GD->SetTextMatrix(row, Waybills, QString::number(result.customer.waybills));
    GD->SetTextMatrix(row, Weight, result.sums.value(0));
    GD->SetTextMatrix(row, Charge, result.sums.value(1));
    GD->SetTextMatrix(row, Result, made ? result.file : result.refusal);
}

void BatchStatements::Report(const reports::StatementBatch& batch, Run& run) {
    QString words = run.stopped ? u"已停止。"_s : QString();
    words += u"已生成 "_s + QString::number(run.made) + u" 个客户的对帐单"_s;
    const auto unmade = static_cast<qsizetype>(run.results.size()) - run.made;
    if (unmade > 0) words += u"，"_s + QString::number(unmade) + u" 个未生成"_s;
    words += u"。"_s;
    try {
        if (run.made > 0) words += u"\r汇总表："_s + batch.WriteSummary(run.results);
    } catch (const RuntimeError& error) {
        run.failures += error.Text();
    }
    for (const QString& failure : run.failures.first(std::min(run.failures.size(), MostNamed)))
        words += u"\r"_s + failure;
    if (run.failures.size() > MostNamed) words += u"\r……共 %1 个，见“结果”栏"_s.arg(run.failures.size());
    ShowStatus();
    sys::Inform(words, MsgTitle);
}
