#include "records/export.h"

#include "app/dressing.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/files.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/export_sheet.h"
#include "schema/names.h"

#include <QFileInfo>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;
using workbook::Format;

namespace {

const QString SettingsEntry = u"ToExcel"_s;  // in the user's settings: the index of the version chosen last
const QString ExportCaption = u"导出数据"_s;
const QString OpenCaption = u"打开文件"_s;
const QString Extension = u".xls"_s;

constexpr int LastColumn = 29;
constexpr int ShownWidth = 2;   // fifteenths of a pixel; a narrower column counts as hidden
constexpr int RowPause = 50;    // ms between two rows in the caption; nobody reads faster
constexpr int FormWidth = 520;  // wide enough for a path

constexpr struct {
    QStringView name;
    Format format;
} Versions[] = {{u"EXCEL 8.0", Format::Biff8}, {u"EXCEL 7.0", Format::Biff7}, {u"EXCEL 5.0", Format::Biff5}};
constexpr int VersionCount = static_cast<int>(std::size(Versions));

/// The first column is always exported, of the others only the visible ones.
std::vector<int> ExportedColumns(const controls::FlexGrid& grid) {
    std::vector<int> columns{0};
    for (int col = 1; col < std::min(grid.Cols(), LastColumn + 1); ++col)
        if (grid.GridColWidth(col) >= ShownWidth) columns.push_back(col);
    return columns;
}

QString Stored() {
    return sys::seams().readSetting(SettingsEntry);
}

/// The message: it gives the row as the list counts it, and the column by its header.
QString Words(const workbook::DoesNotFit& refusal, const controls::FlexGrid& grid, int version) {
    const auto& [name, format] = Versions[version];
    const int row = refusal.row - 1;  // the row of field names is above the grid's rows
    const QString other = format == Format::Biff8 ? QString() : u"\r请选择 EXCEL 8.0 再导出。"_s;
    if (refusal.reason == workbook::DoesNotFit::Reason::TooManyRows)
        return u"从第 %1 行起放不下：%2 的工作表最多 %3 行（含字段名一行）！"_s.arg(row).arg(name).arg(
                   workbook::MostRows(format)) +
               other;
    const int col = ExportedColumns(grid)[refusal.column];
    return u"第 %1 行“%2”的文字太长：%3 的单元格最多 %4 个%5！"_s.arg(row)
               .arg(grid.TextMatrix(0, col), name)
               .arg(workbook::LongestText(format))
               .arg(format == Format::Biff8 ? u"字符"_s : u"字节"_s) +
           other;
}

}  // namespace

void ExportGrid(const controls::FlexGrid& grid) {
    ToExcel form(&TheFrame());
    form.GD = &grid;
    form.ShowModal();
}

ToExcel::ToExcel(QWidget* over) : ModalForm(u"ToExcel"_s, u"导出数据到EXCEL"_s, over) {
    MakeControls();
    auto* rows = new dressing::CaptionRows;
    rows->Add(u"版本:"_s, u"Label1(0)"_s, Cmb);
    rows->Add(u"保存到:"_s, u"Label1(1)"_s, Txt, CmdSaveTo);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(8);
    column->addLayout(rows);
    column->addLayout(dressing::ButtonRow({Cmd[0], Cmd[1]}));
    setFixedWidth(FormWidth);
    Cmb->setFocus(Qt::OtherFocusReason);
}

void ToExcel::MakeControls() {
    Cmb = new controls::ComboBox(this);
    Cmb->setObjectName(u"Cmb"_s);
    Cmb->SetItemsOnly();
    Cmb->KeyPressed = controls::EnterMovesOn;
    Txt = new controls::LineBox(this);
    Txt->setObjectName(u"Txt"_s);
    Txt->SetLocked(true);  // only the dialog fills it, since the dialog checks for a file of that name
    Txt->KeyPressed = controls::EnterMovesOn;
    CmdSaveTo = new controls::Button(u"浏览"_s, this);
    CmdSaveTo->setObjectName(u"CmdSaveTo"_s);
    Cmd = {new controls::Button(ExportCaption, this), new controls::Button(u"返回上层"_s, this)};
    Cmd[0]->setObjectName(u"Cmd(0)"_s);
    Cmd[1]->setObjectName(u"Cmd(1)"_s);
    Cmd[0]->setDefault(true);  // for its colour only
    CmdSaveTo->setProperty("kind", u"inline"_s);
    CmdSaveTo->Click = [this] { ChooseFile(); };
    Cmd[0]->Click = [this] { Press(); };
    Cmd[1]->Click = [this] { Unload(); };
}

void ToExcel::Load() {
    for (const auto& version : Versions) Cmb->AddItem(version.name.toString());
    const double stored = text::Val(Stored());
    Cmb->SetListIndex(stored >= 0 && stored < VersionCount ? static_cast<int>(stored) : 0);
}

void ToExcel::done(int result) {
    if (text::Val(Stored()) != Cmb->ListIndex())
        sys::seams().writeSetting(SettingsEntry, QString::number(Cmb->ListIndex()));
    ModalForm::done(result);
}

void ToExcel::ChooseFile() {
    QString path = sys::AskFile({.kind = sys::FileRequest::Kind::Save,
                                 .title = u"导出数据保存到..."_s,
                                 .proposed = {},
                                 .pattern = u"Excel文件 (*.xls)"_s});
    if (path.isEmpty()) return;
    if (!path.endsWith(Extension, Qt::CaseInsensitive)) path += Extension;
    if (sys::IsThere(path)) return sys::Inform(u"目标文件夹存在同名文件，请更换文件名！"_s, MsgTitle);
    Txt->SetText(path);
    Cmd[0]->SetFocus();
}

void ToExcel::Press() {
    if (Cmd[0]->Caption() == ExportCaption)
        Export();
    else
        OpenFile();
}

void ToExcel::Export() {
    if (Txt->Text().isEmpty()) return sys::Inform(u"请首先选择文件保存位置!"_s, MsgTitle);
    // The export no longer uses this file; its presence shows that the program's folder is complete.
    if (!QFileInfo::exists(AppFolder + schema::kExportFile.toString()))
        return sys::Inform(u"Korvane系统文件excel.dat丢失,无法执行操作!"_s, MsgTitle);
    if (!WriteFile()) return;
    const QString success = u"数据成功导出到Excel文件！"_s;
    setWindowTitle(success);
    CmdSaveTo->setEnabled(false);
    Cmb->setEnabled(false);
    Cmd[0]->SetCaption(OpenCaption);
    sys::Inform(success, QString());
}

bool ToExcel::WriteFile() {
    const controls::WaitPointer waiting;
    try {
        WriteRows(Txt->Text());
        return true;
    } catch (const workbook::DoesNotFit& refusal) {
        sys::Inform(Words(refusal, *GD, Cmb->ListIndex()), MsgTitle);
    } catch (const RuntimeError& error) {
        sys::Inform(error.Text(), MsgTitle);
    }
    return false;
}

void ToExcel::WriteRows(const QString& path) {
    const std::vector<int> columns = ExportedColumns(*GD);
    ExportSheet book(Versions[Cmb->ListIndex()].format, columns.size());
    reported_.invalidate();
    for (int row = 0; row < GD->Rows(); ++row) {
        book.NextRow();
        for (const int col : columns) book.Add(GD->TextMatrix(row, col));
        ShowProgress(row);
    }
    setWindowTitle(u"读取数据完毕,准备导出到Excel文件 "_s);
    controls::ShowProgress();
    book.Save(path);
}

void ToExcel::ShowProgress(int row) {
    if (reported_.isValid() && !reported_.hasExpired(RowPause)) return;
    reported_.start();
    setWindowTitle(u"正在读取第 "_s + QString::number(row) + u" 行"_s);
    controls::ShowProgress();
}

void ToExcel::OpenFile() {
    if (Txt->Text().isEmpty() || !QFileInfo::exists(Txt->Text()))
        return sys::Inform(u"指定文件已经被移除！"_s, MsgTitle);
    sys::seams().openAddress(u"file://"_s + Txt->Text());
}
