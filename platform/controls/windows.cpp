#include "platform/controls/windows.h"

#include "platform/controls/box.h"
#include "platform/controls/input_method.h"
#include "platform/controls/input_order.h"
#include "platform/controls/placing.h"
#include "platform/controls/wait.h"
#include "platform/system/sound.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeView>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

constexpr int kMostRows = 24;          // of a message, before it is scrolled
constexpr int kCharactersOfARow = 40;  // Chinese ones, about
// What a message box has for its text; longer texts are wrapped.
constexpr int kLeastText = 312;
constexpr int kMostText = 560;

/// Runs a dialog; the window beneath is active again afterwards, which a display without a window manager
/// does not do by itself.
int RunOver(QDialog& dialog, bool waitsForQuiet) {
    const OrdinaryPointer pointer;
    const InputOrder::OwnLoop loop(waitsForQuiet);
    const QPointer<QWidget> beneath = QApplication::activeWindow();
    CentreOverParent(dialog);
    const int result = dialog.exec();
    if (beneath && beneath->isVisible()) beneath->activateWindow();
    return result;
}

QMessageBox::Icon IconOf(sys::BoxIcon icon) {
    switch (icon) {
        case sys::BoxIcon::Critical:
            return QMessageBox::Critical;
        case sys::BoxIcon::Question:
            return QMessageBox::Question;
        case sys::BoxIcon::Warning:
            return QMessageBox::Warning;
        case sys::BoxIcon::Information:
            break;
    }
    return QMessageBox::Information;
}

/// A short text makes no narrow box, and one that is a little longer than the toolkit likes is not wrapped
/// for its last word. (A least width in the style sheet would be taken for the text's own, and a text cut.)
void WidenText(QMessageBox& box) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    const int index = grid && label ? grid->indexOf(label) : -1;
    if (index < 0) return;
    int row = 0, column = 0, rows = 0, columns = 0;
    grid->getItemPosition(index, &row, &column, &rows, &columns);
    label->ensurePolished();
    grid->setColumnMinimumWidth(column, qBound(kLeastText, label->sizeHint().width(), kMostText));
}

/// Puts a read-only box with the detail between text and buttons.
void AddDetail(QMessageBox& box, const QString& detail) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    auto* buttons = box.findChild<QDialogButtonBox*>();
    if (!grid || !buttons) return box.setInformativeText(detail);
    auto* text = new QPlainTextEdit(detail, &box);
    text->setObjectName(u"detail"_s);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setMinimumWidth(420);
    text->setFixedHeight(96);
    const int row = grid->rowCount();
    grid->removeWidget(buttons);
    grid->addWidget(text, row, 0, 1, grid->columnCount());
    grid->addWidget(buttons, row + 1, 0, 1, grid->columnCount());
}

/// A text that would push the buttons off the screen is scrolled.
void ScrollLongText(QMessageBox& box) {
    int rows = 0;
    for (const QStringView row : QStringView(box.text()).split(u'\n'))
        rows += 1 + static_cast<int>(row.size()) / kCharactersOfARow;
    auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    if (rows <= kMostRows || !label) return;
    auto* area = new QScrollArea(&box);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    delete box.layout()->replaceWidget(label, area);
    label->setWordWrap(true);
    area->setWidget(label);
    area->viewport()->setAutoFillBackground(false);
    label->setAutoFillBackground(false);  // the area has just switched it on
    area->setMinimumSize(kCharactersOfARow * 13, kMostRows * 16);
}

void AddButtons(QMessageBox& box, const sys::BoxRequest& request) {
    if (request.buttons == sys::BoxButtons::Ok) {
        box.addButton(QMessageBox::Ok)->setText(u"确定"_s);
        box.setDefaultButton(QMessageBox::Ok);
        box.setEscapeButton(QMessageBox::Ok);
        return;
    }
    if (request.buttons == sys::BoxButtons::OkCancel) {
        QPushButton* ok = box.addButton(QMessageBox::Ok);
        ok->setText(u"确定"_s);
        if (request.destroys) Mark(ok, "role", u"danger"_s);
        box.addButton(QMessageBox::Cancel)->setText(u"取消"_s);
        box.setDefaultButton(QMessageBox::Ok);
        box.setEscapeButton(QMessageBox::Cancel);
        return;
    }
    QPushButton* yes = box.addButton(QMessageBox::Yes);
    yes->setText(u"是(&Y)"_s);
    if (request.destroys) Mark(yes, "role", u"danger"_s);
    box.addButton(QMessageBox::No)->setText(u"否(&N)"_s);
    const bool no = request.defaultButton == sys::BoxAnswer::No;
    box.setDefaultButton(no ? QMessageBox::No : QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
}

sys::BoxAnswer AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return sys::BoxAnswer::Yes;
        case QMessageBox::No:
            return sys::BoxAnswer::No;
        case QMessageBox::Cancel:
            return sys::BoxAnswer::Cancel;
        default:
            return sys::BoxAnswer::Ok;
    }
}

/// The files with their dates as the program writes them everywhere, where the toolkit follows the system's
/// locale, and their sizes without the one word that it keeps in English.
class FileList : public QIdentityProxyModel {
  public:
    using QIdentityProxyModel::QIdentityProxyModel;
    QVariant data(const QModelIndex& index, int role) const override {
        const auto* files = qobject_cast<QFileSystemModel*>(sourceModel());
        const QVariant reported = QIdentityProxyModel::data(index, role);
        if (!files || role != Qt::DisplayRole) return reported;
        if (index.column() == 1) return reported.toString().replace(u"bytes"_s, u"字节"_s);
        if (index.column() != 3) return reported;
        return files->lastModified(mapToSource(index)).toString(u"yyyy-MM-dd HH:mm"_s);
    }
};

/// A file's address holds its path as it is, whatever characters an address would read otherwise.
QUrl Url(const QString& address) {
    const QString file = u"file://"_s;
    return address.startsWith(file) ? QUrl::fromLocalFile(address.sliced(file.size())) : QUrl(address);
}

}  // namespace

sys::BoxAnswer ShowMessageBox(const sys::BoxRequest& request) {
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(u"MsgBox"_s);
    box.setTextFormat(Qt::PlainText);
    QString text = request.text;
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    box.setText(text);
    box.setWindowTitle(request.title);
    box.setIcon(IconOf(request.icon));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    AddButtons(box, request);
    for (QAbstractButton* button : box.buttons()) button->setIcon({});  // some desktops add pictures
    WidenText(box);
    ScrollLongText(box);
    if (!request.detail.isEmpty()) AddDetail(box, request.detail);
    return AnswerOf(RunOver(box, true));
}

QString ShowFileDialog(const sys::FileRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.title);
    dialog.setObjectName(u"FileDialog"_s);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    // The forms ask their own question about a file that is there.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setProxyModel(new FileList(&dialog));
    dialog.resize(760, 460);
    if (auto* columns = dialog.findChild<QTreeView*>(u"treeView"_s)) {
        columns->setColumnWidth(0, 260);
        columns->header()->setStretchLastSection(true);
    }
    const bool save = request.kind == sys::FileRequest::Kind::Save;
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (request.kind == sys::FileRequest::Kind::Folder) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
    }
    if (!request.pattern.isEmpty()) dialog.setNameFilter(request.pattern);
    if (!request.proposed.isEmpty()) dialog.selectFile(request.proposed);
    if (RunOver(dialog, false) != QDialog::Accepted) return QString();
    return dialog.selectedFiles().value(0);
}

void InstallWindows() {
    auto& seams = sys::seams();
    seams.showBox = ShowMessageBox;
    seams.askFile = ShowFileDialog;
    seams.openAddress = [](const QString& address) { QDesktopServices::openUrl(Url(address)); };
    seams.switchInputMethod = SwitchInputMethod;
    sys::alertSound() = [] { QApplication::beep(); };
}

}  // namespace controls
