#include "app/child_form.h"

ChildForm::ChildForm(const QString& name, const QString& caption) {
    setObjectName(name);
    setWindowTitle(caption);
    setProperty("role", QStringLiteral("surface"));
    setAttribute(Qt::WA_StyledBackground);
}

ChildForm::~ChildForm() = default;

QMenuBar* ChildForm::MenuBar() {
    if (!menuBar_) {
        menuBar_ = new QMenuBar(this);
        menuBar_->setNativeMenuBar(false);
        menuBar_->hide();
    }
    return menuBar_;
}

void ChildForm::Unload() {
    if (QueryUnload() && LeaveFrame) LeaveFrame();
}
