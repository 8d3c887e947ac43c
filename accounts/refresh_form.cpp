#include "accounts/refresh_form.h"

#include "accounts/refresh.h"
#include "app/dressing.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/wait.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QScopeGuard>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString caption = u"刷新明细帐"_s;

constexpr int Margin = 16;
constexpr int Gap = 8;
constexpr int PaintPause = 50;  // ms between two paintings
constexpr int UnitWidth = 220;

/// Shows names in a window's caption; it is painted as often as an eye can follow.
class Progress {
  public:
    explicit Progress(QWidget& window) : window_(window) {}

    void operator()(const QString& name) {
        window_.setWindowTitle(u"正在刷新 "_s + name);
        if (reported_.isValid() && !reported_.hasExpired(PaintPause)) return;
        reported_.start();
        controls::ShowProgress();
    }

  private:
    QWidget& window_;
    QElapsedTimer reported_;
};

}  // namespace

ReKuanFrm::ReKuanFrm(QWidget* over) : ModalForm(u"ReKuanFrm"_s, caption, over) {
    SetClosedByEsc(true);
    Command1 = new controls::Button(u"开始刷新"_s, this);
    Command2 = new controls::Button(u"返回上层"_s, this);
    Command1->setObjectName(u"Command1"_s);
    Command2->setObjectName(u"Command2"_s);
    Command1->setDefault(true);
    Command1->Click = [this] { Start(); };
    Command2->Click = [this] { Unload(); };
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(Gap);
    MakeChoices();
    column->addWidget(Opt[0]);
    auto* one = new QHBoxLayout;
    one->setSpacing(Gap);
    one->addWidget(Opt[1]);
    one->addWidget(Cmb);
    one->addWidget(new QLabel(u"应收应付帐"_s));
    one->addStretch(1);
    column->addLayout(one);
    column->addLayout(dressing::ButtonRow({Command1, Command2}));
    QWidget* before = Opt[0];
    for (QWidget* next : std::initializer_list<QWidget*>{Opt[1], Cmb, Command1, Command2}) {
        setTabOrder(before, next);
        before = next;
    }
}

void ReKuanFrm::MakeChoices() {
    const QString captions[] = {u"刷新所有单位应收应付帐"_s, u"刷新"_s};
    for (std::size_t i = 0; i < Opt.size(); ++i) {
        Opt[i] = new QRadioButton(captions[i], this);
        Opt[i]->setObjectName(u"Opt(%1)"_s.arg(i));
        Opt[i]->setFocusPolicy(Qt::ClickFocus);
        // Tab reaches only the chosen one, Up and Down the other.
        connect(Opt[i], &QRadioButton::toggled, Opt[i], [choice = Opt[i]](bool chosen) {
            choice->setFocusPolicy(chosen ? Qt::StrongFocus : Qt::ClickFocus);
        });
    }
    Opt[1]->setAccessibleName(u"刷新一个单位应收应付帐"_s);
    Opt[1]->setChecked(true);
    Cmb = new controls::ComboBox(this);
    Cmb->setObjectName(u"Cmb"_s);
    Cmb->setAccessibleName(u"单位"_s);
    Cmb->setFixedWidth(UnitWidth);
    Cmb->KeyPressed = controls::EnterMovesOn;
}

void ReKuanFrm::Load() {
    if (Cmb->ListCount() > 1) return;  // shown before
    for (int i = 1; i < Units->ListCount(); ++i) Cmb->AddItem(Units->List(i));
    Cmb->SetFocus();
}

QStringList ReKuanFrm::Items() const {
    QStringList items;
    for (int i = 0; i < Cmb->ListCount(); ++i) items += Cmb->List(i);
    return items;
}

void ReKuanFrm::Start() {
    if (Opt[0]->isChecked())
        Refresh(Items());
    else
        RefreshOne();
}

void ReKuanFrm::RefreshOne() {
    const QString name = text::Trim(Cmb->Text());
    if (name.isEmpty()) return sys::Inform(u"请输入或选择要刷新的单位！"_s, {});
    if (!Items().contains(name)) return sys::Inform(u"没有［"_s + name + u"］这个单位！"_s, {});
    Refresh({name});
}

void ReKuanFrm::Refresh(const QStringList& names) {
    // Also where the operator gives the command up because the file is busy.
    const auto restored = qScopeGuard([this] {
        setEnabled(true);
        setWindowTitle(caption);
    });
    setEnabled(false);
    {
        const controls::WaitPointer wait;
        Progress progress(*this);
        accounts::RefreshChains(*Db, names, [&](const QString& name) { progress(name); });
    }
    setWindowTitle(u"刷新完成！"_s);
    setEnabled(true);
    Command1->SetFocus();  // it lost the focus when the form was disabled
    sys::Inform(u"刷新完成！"_s, {});
}
