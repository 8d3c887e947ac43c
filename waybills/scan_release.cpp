#include "waybills/scan_release.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/paint.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"
#include "platform/system/sound.h"
#include "platform/text/numbers.h"
#include "platform/text/stored_key.h"
#include "records/export.h"
#include "records/filter_strip.h"
#include "reports/printing.h"
#include "reports/report_rows.h"
#include "waybills/waybill_fields.h"

#include <QAccessible>
#include <QSet>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using waybills::Brief;

namespace {

const QString Released = u"已出货"_s;
const QString Refused = u"未出货"_s;
const QString AllChannels = u"全部渠道"_s;
const QString WaybillMenu = u"Menu_b"_s;
const QString ReportMenu = u"Menu_C"_s;
const QString ListLayout = u"prntscan.rpt"_s;

enum Column { At, Number, Consignee, Channel, Weight, Result, Why, Columns };
constexpr int Shares[Columns] = {9, 15, 22, 14, 9, 9, 44};

/// What the manifests are chosen by. The code of a channel is a figure of the card.
QString ChannelItem(const Brief& waybill) {
    if (waybill.channelCode.isEmpty()) return u"无渠道"_s;
    if (CanSeeFigures) return waybill.channelCode + u'.' + waybill.channelName;
    return waybill.channelName.isEmpty() ? u"无名渠道"_s : waybill.channelName;
}

QString Cell(QString text) {
    for (const QChar divider : {u'\t', u'\r', u'\n'}) text.replace(divider, u' ');
    return text;
}

}  // namespace

/// Tab ends a number as Return does; in an empty text box it moves on.
class ScanRelease::NumberBox : public controls::LineBox {
  public:
    sys::Event<> Ended;

  protected:
    bool focusNextPrevChild(bool next) override {
        if (!next || text::Trim(text()).isEmpty()) return LineBox::focusNextPrevChild(next);
        Ended();
        return true;
    }
};

ScanRelease::ScanRelease()
    : ChildForm(u"ScanRelease"_s, u"扫描出货"_s),
      Txt(new NumberBox),
      Cmb(new controls::ComboBox),
      LabVerdict(new QLabel),
      LabCounts(new QLabel),
      GD(new controls::FlexGrid) {
    MakeList();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(MakeVerdict());
    column->addWidget(GD, 1);
    SetCommands();
}

QWidget* ScanRelease::MakeStrip() {
    auto* strip = new FilterStrip(*this);
    strip->Add(u"速递单号"_s, u"Txt(0)"_s, Txt, FilterStrip::kChoiceWidth);
    strip->Add(u"打印渠道"_s, u"Cmb"_s, Cmb, FilterStrip::kChoiceWidth);
    Txt->setAttribute(Qt::WA_InputMethodEnabled, false);  // none composes what a scanner types
    Txt->KeyPressed = [this](controls::KeyPress& key) {
        if (!key.IsEnter()) return;
        key.taken = true;
        if (key.IsFirstEnter()) Scan();
    };
    Txt->Ended = [this] { Scan(); };
    Cmb->SetItemsOnly();
    Cmb->AddItem(AllChannels);
    Cmb->SetListIndex(0);
    Cmb->KeyPressed = [this](controls::KeyPress& key) {
        controls::EnterMovesOn(key);
        GoToNumber(key);
    };
    return strip;
}

QWidget* ScanRelease::MakeVerdict() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(16, 8, 16, 8);
    LabVerdict->setObjectName(u"LabVerdict"_s);
    LabCounts->setObjectName(u"LabCounts"_s);
    for (QLabel* label : {LabVerdict, LabCounts}) {
        label->setTextFormat(Qt::PlainText);
        label->setProperty("kind", u"verdict"_s);
    }
    LabVerdict->setText(u"请扫描速递单号"_s);
    LabVerdict->setMinimumWidth(1);  // a long reason must not widen the window
    row->addWidget(LabVerdict, 1);
    row->addWidget(LabCounts);
    return bar;
}

void ScanRelease::MakeList() {
    const QStringList headers{u"时间"_s,     u"速递单号"_s, u"收件人"_s, u"出货渠道"_s,
                              u"收重(KG)"_s, u"结果"_s,     u"原因"_s};
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(u"扫描出货"_s);
    GD->setProperty("edge", u"none"_s);
    GD->SetCols(Columns);
    for (int col = 0; col < Columns; ++col) GD->SetTextMatrix(0, col, headers[col]);
    GD->ShareWidths({std::begin(Shares), std::end(Shares)});
    GD->SetColAlignment(Weight, Qt::AlignRight | Qt::AlignVCenter);
    GD->SetColAlignment(Result, Qt::AlignCenter);
    GD->SetWordColor(Result, Refused, controls::paint::kDanger);
    GD->KeyPressed = [this](controls::KeyPress& key) { GoToNumber(key); };
}

void ScanRelease::SetCommands() {
    using When = CommandRow::When;
    CommandRow prints{.name = u"Menu_P"_s, .caption = u"&P.打印"_s, .when = When::Always};
    for (const reports::Print& print : reports::ManifestReport.prints)
        prints.items.push_back(
            {print.command, print.caption, When::Always, [this, &print] { PrintManifest(print); }});
    prints.items.push_back({u"Menu_P4"_s, u"扫描清单"_s, When::Always, [this] { PrintList(); }});
    commands_.Fill(MenuBar(),
                   {{u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Always, [this] { ExportGrid(*GD); }},
                    prints,
                    {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }}});
}

void ScanRelease::Load() {
    GD->SetRow(0);
    ShowCounts();
}

void ScanRelease::Activated() {
    Txt->SetFocus();
    ShowCounts();
}

QWidget* ScanRelease::FirstFocus() const {
    return Txt;
}

/// A scanner types on whatever has the focus.
void ScanRelease::GoToNumber(controls::KeyPress& key) {
    if (key.taken || key.IsChord() || key.text.isEmpty() || !key.text[0].isPrint() || key.text[0] == u' ')
        return;
    key.taken = true;
    Txt->SetFocus();
    Txt->insert(key.text);
}

void ScanRelease::Scan() {
    const QString number = text::Trim(Txt->Text());
    if (number.isEmpty()) return;
    Txt->SetText({});
    // Until its release is committed it has failed.
    Scanned scanned{sys::Now().toString(u"HH:mm:ss"_s), {.number = number}, u"出错，没有出货"_s};
    try {
        scanned = ReleaseOne(number);
    } catch (const DatabaseError& error) {
        if (!error.GroupLost()) scanned.refusal += u"："_s + error.Text();
        Show(scanned);
        if (error.GroupLost()) throw;
        return;
    } catch (const sys::CommandGivenUp&) {
        scanned.refusal = u"数据文件正忙，没有出货"_s;
    } catch (const PlatformError&) {
        Show(scanned);
        throw;
    }
    Show(scanned);
}

ScanRelease::Scanned ScanRelease::ReleaseOne(const QString& number) {
    Scanned scanned{sys::Now().toString(u"HH:mm:ss"_s), {.number = number}, {}};
    if (!TheFrame().MenuVisible(WaybillMenu)) {
        scanned.refusal = u"您没有速递单据的权限"_s;
        return scanned;
    }
    const auto found = waybills::FindBrief(*Db, number);
    if (found) {
        scanned.waybill = *found;
        scanned.refusal = waybills::Release(number);
        sys::CloseCommand();
    }
    if (!found || !scanned.refusal.isEmpty()) scanned.refusal = Reason(scanned, found.has_value());
    return scanned;
}

QString ScanRelease::Reason(const Scanned& scanned, bool known) const {
    const QString refusal = known ? scanned.refusal : u"没有这个速递单"_s;
    const QString first = firstAt_.value(text::StoredKey(scanned.waybill.number));
    if (!first.isEmpty()) return u"重复扫描（"_s + first + u"），"_s + refusal;
    const QString mark = text::Trim(scanned.waybill.releaseMark);
    return mark.isEmpty() ? refusal : refusal + u"（审核人："_s + mark + u'）';
}

void ScanRelease::Show(const Scanned& scanned) {
    const bool released = scanned.refusal.isEmpty();
    const Brief& waybill = scanned.waybill;
    const QString result = released ? Released : Refused;
    GD->AddItem(QStringList{Cell(scanned.at), Cell(waybill.number), Cell(waybill.consignee),
                            Cell(waybill.channelName), Cell(waybill.weight), result, Cell(scanned.refusal)}
                    .join(u'\t'),
                1);
    if (scanned_.empty()) GD->RemoveItem(2);  // the blank line
    GD->SetRow(1);
    scanned_.push_back(scanned);
    released_ += released;
    const QString key = text::StoredKey(waybill.number);
    if (!firstAt_.contains(key)) firstAt_.insert(key, scanned.at);
    if (released) AddChannel(waybill);
    LabVerdict->setText(released ? u"%1　%2　%3"_s.arg(waybill.number, result, waybill.channelName).trimmed()
                                 : u"%1　%2　%3"_s.arg(waybill.number, result, scanned.refusal));
    controls::Mark(LabVerdict, "role", released ? u"success"_s : u"error"_s);
    QAccessibleEvent alert(LabVerdict, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    ShowCounts();
    if (!released) sys::SoundAlert();
}

void ScanRelease::ShowCounts() {
    const auto all = static_cast<int>(scanned_.size());
    LabCounts->setText(u"已出货 %1　未出货 %2"_s.arg(released_).arg(all - released_));
    TheFrame().SetPanel(MForm::PositionPanel,
                        all == 0 ? u"扫描出货：无单据信息"_s
                                 : u"扫描出货：共 %1 次扫描 已出货 %2 票"_s.arg(all).arg(released_));
}

/// The channels that something was released through.
void ScanRelease::AddChannel(const Brief& waybill) {
    if (channels_.contains(waybill.channelCode)) return;
    channels_ += waybill.channelCode;
    Cmb->AddItem(ChannelItem(waybill));
}

/// As they are now: since its scan a waybill may have been unmarked, or given another channel.
std::vector<Brief> ScanRelease::StillReleased() const {
    const controls::WaitPointer wait;
    std::vector<Brief> released;
    QSet<QString> taken;
    for (const Scanned& scanned : scanned_) {
        if (!scanned.refusal.isEmpty()) continue;
        const auto now = waybills::FindBrief(*Db, scanned.waybill.number);
        if (!now || !waybills::IsReleased(now->releaseMark) || taken.contains(now->number)) continue;
        taken.insert(now->number);
        released.push_back(*now);
    }
    return released;
}

/// The manifests have what the report of the shipments has, and its right.
void ScanRelease::PrintManifest(const reports::Print& print) {
    if (!TheFrame().MenuVisible(ReportMenu)) return sys::Inform(u"您没有统计报表的权限!"_s, MsgTitle);
    const int chosen = Cmb->currentIndex() - 1;  // all of them come first; names may be equal
    QStringList numbers;
    QString name = AllChannels;
    for (const Brief& waybill : StillReleased()) {
        AddChannel(waybill);
        if (chosen >= 0 && waybill.channelCode != channels_[chosen]) continue;
        numbers += waybill.number;
        if (chosen >= 0) name = waybill.channelName;
    }
    if (numbers.isEmpty()) return sys::Inform(u"无数据可打印"_s, MsgTitle);
    const controls::WaitPointer wait;
    reports::FillWorkTable(*Db, reports::ManifestReport.work, static_cast<int>(numbers.size()),
                           [&](int row, int) { return numbers[row]; });
    RunReport(print.layout, print.formulas ? print.formulas({}, name) : QStringList());
}

/// What was scanned first comes first. The work table is that of the problem notice.
void ScanRelease::PrintList() {
    if (scanned_.empty()) return sys::Inform(u"无数据可打印"_s, MsgTitle);
    if (!LayoutIsThere(ListLayout, u"丢失!"_s)) return;
    const controls::WaitPointer wait;
    const auto rows = static_cast<int>(scanned_.size());
    const reports::WorkTable work{.name = u"PRNTC05"_s,
                                  .insert = u"insert into PRNTC05 (F1,F2,F3,F4,F5,F6,F7) VALUES("_s,
                                  .columns = {At, Number, Consignee, Channel, Weight, Result, Why}};
    reports::FillWorkTable(*Db, work, rows, [&](int row, int col) {
        QString cell = GD->TextMatrix(rows - row, col);
        return CleanText(cell);  // an apostrophe would break the insert
    });
    RunReport(ListLayout, {u"TJ='已出货 %1，未出货 %2'"_s.arg(released_).arg(rows - released_)});
}
