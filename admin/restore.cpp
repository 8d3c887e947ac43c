#include "admin/restore.h"

#include "admin/end_of_day.h"
#include "app/data_file.h"
#include "app/dressing.h"
#include "app/session.h"
#include "platform/controls/box.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/files.h"
#include "platform/system/seams.h"

#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int RowsShown = 6;
enum Column { MadeCol, SizeCol, WaybillsCol };

void LetGoOfData() {
    try {
        CloseData();
    } catch (const PlatformError&) {
        // The file is about to be replaced.
    }
}

/// The copy is made beside the database and then takes its place, so that a copy that fails leaves the old
/// file whole. What the engine kept beside the old one goes first: it would be played into the new one.
void ReplaceData(const QString& backup) {
    if (QFileInfo(backup).canonicalFilePath() == QFileInfo(DbFile).canonicalFilePath()) return;
    const QString fresh = DbFile + u".restoring"_s;
    if (!sys::seams().copyFile(backup, fresh).isEmpty()) return;
    KeepDataFile();  // where that fails, the backup is wanted all the same
    sys::RemoveEngineFiles(DbFile);
    if (!sys::ReplaceFile(fresh, DbFile).isEmpty()) QFile::remove(fresh);
}

/// From here on the program ends.
void RestoreFrom(const QString& backup) {
    // Whoever has the file open would go on with the old one and lose what he writes. Without a database of
    // its own the program cannot find out, and restores unasked.
    if (OthersAreAtWork(u"恢复数据"_s)) return;
    {
        LetGoOfData();
        const controls::WaitPointer waiting;
        ReplaceData(backup);
    }
    sys::Inform(u"数据恢复完成，请重新运行本系统！"_s, QString());
    sys::EndProgram(0);
}

QString Size(qint64 bytes) {
    const double megabytes = static_cast<double>(bytes) / (1 << 20);
    return QString::number(megabytes, 'f', megabytes < 10 ? 1 : 0) + u" MB"_s;
}

QString Moment(const QDateTime& moment) {
    return moment.toString(u"yyyy-MM-dd HH:mm"_s);
}

controls::Button* MakeButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new controls::Button(caption, parent);
    button->setObjectName(name);
    return button;
}

}  // namespace

S32::S32(QWidget* over)
    : ModalForm(u"S32"_s, u"数据恢复"_s, over),
      copies_(admin::SessionCopies()),
      GD(new controls::FlexGrid(this)),
      CmdCopy(MakeButton(u"CmdCopy"_s, u"恢复所选副本"_s, this)),
      LabSecond(new QLabel(this)),
      CmdForget(MakeButton(u"CmdForget"_s, u"不用"_s, this)) {
    auto* warning =
        new QLabel(u"警告：数据恢复操作危险！建议在恢复前先备份数据，以防造成数据丢失后果！"_s, this);
    warning->setObjectName(u"Label1"_s);
    warning->setProperty("role", u"error"_s);
    auto* restore = MakeButton(u"Command1"_s, u"恢复数据"_s, this);
    auto* cancel = MakeButton(u"Command2"_s, u"取消操作"_s, this);
    restore->setProperty("role", u"danger"_s);
    restore->Click = [this] { Restore(); };
    cancel->Click = [this] { Unload(); };

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 18);
    column->setSpacing(12);
    column->addWidget(warning);
    column->addLayout(CopyList());
    column->addLayout(SecondFolderRow());
    column->addLayout(dressing::ButtonRow({CmdCopy, restore, cancel}));
    setTabOrder(CmdCopy, restore);
    setTabOrder(restore, cancel);
    cancel->setFocus();  // not on what can't be undone
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

/// What the program has copied by itself, from the list file.
QLayout* S32::CopyList() {
    auto* title = new QLabel(u"每天自动保存的副本"_s, this);
    title->setProperty("role", u"group"_s);
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(title->text());
    GD->SetFramed(true);
    GD->setFixedHeight(GD->HeightOf(RowsShown));
    CmdCopy->setProperty("role", u"danger"_s);
    CmdCopy->Click = [this] { RestoreCopy(); };
    FillList();
    auto* column = new QVBoxLayout;
    column->setSpacing(6);
    column->addWidget(title);
    column->addWidget(GD);
    return column;
}

void S32::FillList() {
    list_ = copies_.List();
    const QString headers[] = {u"保存时间"_s, u"大小"_s, u"速递单数"_s};
    GD->SetCols(static_cast<int>(std::size(headers)));
    for (int col = 0; col < GD->Cols(); ++col) GD->SetTextMatrix(0, col, headers[col]);
    for (const int col : {SizeCol, WaybillsCol}) GD->SetColAlignment(col, Qt::AlignRight);
    GD->BeginLoad(static_cast<int>(list_.size()));
    int row = 0;
    for (const admin::DailyCopy& copy : list_) {
        GD->LoadCell(row, MadeCol, Moment(copy.made));
        GD->LoadCell(row, SizeCol, Size(copy.bytes));
        GD->LoadCell(row, WaybillsCol, copy.waybills < 0 ? QString() : QString::number(copy.waybills));
        ++row;
    }
    GD->EndLoad();
    GD->ShareWidths();
    GD->SetRow(1);
    CmdCopy->setEnabled(!list_.empty());
}

QLayout* S32::SecondFolderRow() {
    auto* choose = MakeButton(u"CmdSecond"_s, u"选择..."_s, this);
    choose->Click = [this] { ChooseSecondFolder(); };
    CmdForget->Click = [this] { ForgetSecondFolder(); };
    LabSecond->setObjectName(u"LabSecond"_s);
    LabSecond->setTextFormat(Qt::PlainText);
    LabSecond->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(LabSecond, 1);
    row->addWidget(choose);
    row->addWidget(CmdForget);
    ShowSecondFolder();
    return row;
}

void S32::ShowSecondFolder() {
    const QString folder = copies_.SecondFolder();
    const bool chosen = !folder.isEmpty();
    const bool missing = chosen && !QFileInfo(folder).isDir();
    const QString reported = chosen ? folder + (missing ? u"（现在不存在）"_s : QString()) : u"没有选择"_s;
    LabSecond->setText(u"同时保存到："_s + reported);
    LabSecond->setToolTip(folder);
    CmdForget->setEnabled(chosen);
}

void S32::ChooseSecondFolder() {
    const QString folder = sys::AskFile({.kind = sys::FileRequest::Kind::Folder,
                                         .title = u"选择第二备份位置"_s,
                                         .proposed = copies_.SecondFolder(),
                                         .pattern = {}});
    if (folder.isEmpty()) return;
    if (const QString words = copies_.SetSecondFolder(folder); !words.isEmpty())
        return sys::Inform(words, MsgTitle);
    ShowSecondFolder();
}

void S32::ForgetSecondFolder() {
    if (const QString words = copies_.SetSecondFolder({}); !words.isEmpty())
        return sys::Inform(words, MsgTitle);
    ShowSecondFolder();
}

void S32::Restore() {
    const QString backup = sys::AskFile({.kind = sys::FileRequest::Kind::Open,
                                         .title = u"恢复业务数据"_s,
                                         .proposed = {},
                                         .pattern = u"*.dat"_s});
    if (!backup.isEmpty()) RestoreFrom(backup);
}

void S32::RestoreCopy() {
    const admin::DailyCopy& copy = list_.at(static_cast<std::size_t>(GD->Row() - 1));
    const QString question = u"真的要用 "_s + Moment(copy.made) + u" 的副本替换现在的数据吗？"_s;
    if (sys::AskToDestroy(question, MsgTitle, sys::BoxAnswer::No)) RestoreFrom(copy.path);
}
