#include "admin/reset.h"

#include "app/data_file.h"
#include "app/dressing.h"
#include "app/history_pause.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/wait.h"
#include "platform/system/seams.h"

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

enum Group { Masters, Customers, Waybills, Ledger };

struct GroupRow {
    QStringView caption;
    QList<QStringView> tables;  ///< emptied in this order
    QStringView alone;          ///< the refusal where the waybills do not go with them
};

const GroupRow Rows[] = {
    {u"清除所有基本资料",
     {u"M01", u"m011", u"M0111", u"M012", u"M02", u"m021", u"M04"},
     u"清除了基本资料，速递单据相关信息也将无法存在！请同时选择删除速递单据信息"},
    {u"清除所有客户及报信息",  // required by the business in these words
     {u"M03", u"M031", u"M030"},
     u"清除了客户资料，速递单据相关信息也将无法存在！请同时选择删除速递单据信息"},
    {u"清除所有速递单据", {u"B01", u"B011"}, {}},
    {u"清除所有往来帐", {u"tb1"}, {}},
};

/// Gives the words of what was in the way.
QString KeepCopy() {
    const controls::WaitPointer waiting;
    QString failure;
    Db->WhileClosed([&] { failure = KeepDataFile(); });
    return failure;
}

}  // namespace

S03::S03(QWidget* over) : ModalForm(u"S03"_s, u"清除数据"_s, over) {
    auto* card = new QWidget(this);
    card->setProperty("role", u"surface"_s);
    card->setAttribute(Qt::WA_StyledBackground);
    auto* boxes = new QVBoxLayout(card);
    boxes->setContentsMargins(24, 16, 24, 16);
    boxes->setSpacing(12);
    for (int i = 0; i < Groups; ++i) {
        Chk[i] = new controls::CheckBox(Rows[i].caption.toString(), this);
        Chk[i]->setObjectName(u"Chk(%1)"_s.arg(i));
        Chk[i]->KeyPressed = controls::EnterMovesOn;
        boxes->addWidget(Chk[i]);
    }
    auto* note = new QLabel(u"清除前，数据文件的副本自动保存在程序的文件夹中。"_s, card);
    note->setProperty("role", u"subtitle"_s);
    boxes->addWidget(note);

    auto* clear = new controls::Button(u"清 除"_s, this);
    auto* quit = new controls::Button(u"退 出"_s, this);
    clear->setObjectName(u"Cmd(0)"_s);
    quit->setObjectName(u"Cmd(1)"_s);
    clear->setProperty("role", u"danger"_s);
    clear->Click = [this] { Clear(); };
    quit->Click = [this] { Unload(); };

    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(24, 4, 24, 14);
    foot->addLayout(dressing::ButtonRow({clear, quit}));
    dressing::Stack(*this, *card, foot);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    Chk[Masters]->setFocus(Qt::OtherFocusReason);
}

/// Masters and customers cannot go without the waybills; the reverse is not asked for, and the ledger is
/// independent of all.
bool S03::LacksWaybills() const {
    if (Chk[Waybills]->Value() == 1) return false;
    for (const Group group : {Masters, Customers}) {
        if (Chk[group]->Value() == 0) continue;
        sys::Inform(Rows[group].alone.toString(), MsgTitle);
        return true;
    }
    return false;
}

void S03::Clear() {
    if (std::ranges::none_of(Chk, [](const controls::CheckBox* box) { return box->Value() == 1; }))
        return sys::Inform(u"请选择要清除的对象!"_s, MsgTitle);
    if (!sys::AskToDestroy(u"数据清除后将无法恢复!真的继续吗?"_s, u"警告"_s)) return;
    if (LacksWaybills() || OthersAreAtWork(u"清除数据"_s)) return;
    if (const QString failure = KeepCopy(); !failure.isEmpty())
        return sys::Inform(u"清除前未能保存数据文件的副本，没有清除任何数据！\r"_s + failure, MsgTitle);
    {
        const controls::WaitPointer waiting;
        QStringList tables;
        for (int group = 0; group < Groups; ++group)
            if (Chk[group]->Value() == 1)
                for (const QStringView table : Rows[group].tables) tables += table.toString();
        HistoryPause history(*Db, tables);
        for (const QString& table : tables) Db->Execute(u"delete from "_s + table);
        history.Forget();
    }
    sys::Inform(u"数据清除成功!"_s, MsgTitle);
    StoredDataChanged();
}
