#include "benchmarks/office.h"

#include "app/history_groups.h"
#include "app/rights.h"
#include "app/session.h"
#include "platform/system/seams.h"
#include "program/wiring.h"
#include "schema/data_files.h"
#include "schema/names.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

template <class Control>
Control& Found(const QWidget& form, const QString& name) {
    if (auto* control = form.findChild<Control*>(name)) return *control;
    std::fprintf(stderr, "no control %s\n", qPrintable(name));
    std::exit(2);
}

/// A message box means that the command did not do what is measured; the run ends.
void EndOnBoxes() {
    sys::seams().showBox = [](const sys::BoxRequest& request) -> sys::BoxAnswer {
        std::fprintf(stderr, "a box came: %s %s\n", qPrintable(request.text), qPrintable(request.detail));
        std::exit(2);
    };
}

}  // namespace

void OpenForm::LoadFirst(int waybills) {
    const QString select = u"select "_s;
    LoadGrid(select + u"top %1 "_s.arg(waybills) + ListStatement().mid(select.size()));
}

controls::ComboBox& OpenForm::Combo(waybills::Box box) {
    return Found<controls::ComboBox>(*this, u"Cmb(%1)"_s.arg(static_cast<int>(box)));
}

void OpenForm::Press(const QString& command) {
    Found<QAction>(*MenuBar(), command).trigger();
}

Office::Office(MadeCompany& company) {
    EndOnBoxes();
    AppFolder = company.Folder() + u"/office/"_s;
    QDir(AppFolder).removeRecursively();
    QDir().mkpath(AppFolder);
    DbFile = AppFolder + schema::kDatabaseFile.toString();
    company.Bare().Run("pragma wal_checkpoint(truncate)");
    QFile::copy(company.File(), DbFile);

    Db = dao::Database::Open(DbFile, schema::kConnect.toString(), {},
                             [this](sqlite3* engine) { engine_ = engine; });
    bare_ = std::make_unique<BareEngine>(DbFile);
    NoteGroups();
    NumFormat = u"#0.00"_s;
    MsgTitle = u"提示"_s;
    Registry registry = Wire(AppFolder).registry;
    registry.children[u"B01"_s] = [] { return std::make_unique<OpenForm>(); };
    frame_ = std::make_unique<MForm>(registry);
    SetTheFrame(frame_.get());
    frame_->resize(1366, 768);
    frame_->Load();
    frame_->show();
    frame_->activateWindow();
    OperatorCode = u"001"_s;
    OperatorName = u"管理员"_s;
    ApplyRights();
    form_ = static_cast<OpenForm*>(&frame_->ShowChild(u"B01"_s));
    Settle();
}

void Office::Settle() {
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
}

Office::~Office() {
    EditInProgress = false;
    frame_.reset();
    SetTheFrame(nullptr);
    Db.reset();
    bare_.reset();
    QDir(AppFolder).removeRecursively();
}

}  // namespace benchmarks
