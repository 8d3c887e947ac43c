#include "reports/printing.h"

#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/files.h"
#include "platform/system/seams.h"
#include "schema/names.h"

using namespace Qt::StringLiterals;

namespace {

/// The session's own database where the report reads that file, else the file itself.
std::shared_ptr<dao::Database> DatabaseOf(const QString& path) {
    if (Db && path == DbFile) return {&*Db, [](dao::Database*) {}};
    return dao::Database::Open(path, schema::kConnect.toString());
}

}  // namespace

Prnt::Prnt()
    : ChildForm(u"Prnt"_s, u"打印"_s), Cry(new report::ReportControl(this)), Label1(new QLabel(this)) {
    controls::AddCommand(MenuBar(), u"Menu_prnt"_s, u"&P.打印"_s, [this] { Menu_prnt(); });
    controls::AddCommand(MenuBar(), u"Menu_Rtn"_s, u"&R.返回"_s, [this] { Menu_Rtn(); });
    Label1->setObjectName(u"Label1"_s);
    Label1->setText(u"您的电脑没有安装打印机!"_s);
    Label1->setAlignment(Qt::AlignCenter);
    Cry->setObjectName(u"Cry"_s);
    Cry->OpenDataFile = DatabaseOf;
    Cry->PositionChanged = [this](const QString& position) {
        if (TheFrame().Front() == this) TheFrame().SetPanel(MForm::PositionPanel, position);
    };
}

void Prnt::Load() {
    Cry->WindowParent = this;
    Cry->WindowLeft = 0;
    Cry->WindowTop = 0;
    Cry->MessageTitle = MsgTitle;
}

void Prnt::Activated() {
    if (const QString position = Cry->Position(); !position.isEmpty())
        TheFrame().SetPanel(MForm::PositionPanel, position);
}

void Prnt::resizeEvent(QResizeEvent*) {
    Label1->setGeometry(rect());
}

/// An error is ignored: the command ends without a word.
void Prnt::Menu_prnt() {
    try {
        Cry->Destination = report::ReportControl::ToPrinter;
        Cry->SetAction(1);
    } catch (const PlatformError&) {
    }
}

void RunReport(const QString& layout, const QStringList& formulas) {
    const controls::WaitPointer wait;
    auto& form = dynamic_cast<Prnt&>(TheFrame().ShowChild(u"Prnt"_s));
    report::ReportControl& control = *form.Cry;
    control.DataFiles[0] = DbFile;
    control.ReportFileName = AppFolder + layout;
    control.Formulas.clear();
    for (qsizetype i = 0; i < formulas.size(); ++i) control.Formulas[static_cast<int>(i)] = formulas[i];
    control.Destination = report::ReportControl::ToWindow;
    control.SetAction(1);
}

QString Formula(const QString& name, const QString& value) {
    return name + u"='"_s + value + u'\'';
}

bool LayoutIsThere(const QString& layout, const QString& lost) {
    const bool there = sys::IsThere(AppFolder + layout);
    if (!there) sys::Inform(u"报表文件"_s + layout + lost, MsgTitle);
    return there;
}
