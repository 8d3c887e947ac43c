#include "platform/report/preview.h"

#include "platform/controls/look.h"
#include "platform/controls/numeric.h"
#include "platform/controls/paint.h"
#include "platform/system/guard.h"
#include "platform/text/numbers.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QPainter>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace report {
namespace {

// Device-independent pixels.
constexpr int kBar = 40, kEdge = 10, kPageBox = 44, kZoomBox = 76, kFindBox = 200, kIcon = 16,
              kSmallIcon = 12;
constexpr int kSlice = 12;  // milliseconds of a search between two events
constexpr std::array<int, 8> kZooms{50, 75, 100, 125, 150, 200, 300, 400};  // per cent

QString ZoomText(double zoom) {
    return QString::number(std::lround(zoom * 100)) + u" %"_s;
}

/// The line between two groups of the bar.
class Divider : public QWidget {
  public:
    Divider() { setFixedSize(13, 16); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        controls::paint::Hairline(painter, controls::paint::kFootLine, QLineF(6, 0, 6, height()));
    }
};

QLabel* Words(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

}  // namespace

Preview::Preview(QWidget* parent) : QWidget(parent), desk_(new Desk) {
    setObjectName(u"Preview"_s);
    auto* strip = new QWidget;
    strip->setFixedHeight(kBar);
    strip->setProperty("role", u"strip"_s);
    strip->setAttribute(Qt::WA_StyledBackground);
    auto* bar = new QHBoxLayout(strip);
    bar->setContentsMargins(kEdge, 0, kEdge, 0);
    bar->setSpacing(2);
    BuildPaging(*bar);
    bar->addWidget(new Divider);
    BuildZoom(*bar);
    bar->addWidget(new Divider);
    BuildSearch(*bar);
    bar->addStretch(1);
    auto* save =
        AddButton(*bar, u"SavePdf"_s, u"save-pdf"_s, u"另存为 PDF"_s, {QKeySequence(u"Ctrl+S"_s)}, [this] {
            if (Save) Save();
        });
    save->setText(u"另存为 PDF"_s);
    save->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    save->setProperty("words", u"true"_s);
    auto* reload = new QShortcut(QKeySequence(u"F5"_s), this);
    connect(reload, &QShortcut::activated, this, [this] {
        sys::Guarded([this] {
            if (Reload) Reload();
        });
    });

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(strip);
    column->addWidget(desk_, 1);
    desk_->Moved = [this] { ShowState(); };
    desk_->WheelZoomed = [this](int by) { StepZoom(by); };
    search_.setInterval(0);
    connect(&search_, &QTimer::timeout, this, [this] { sys::Guarded([this] { SearchOn(); }); });
}

QToolButton* Preview::AddButton(QHBoxLayout& bar, const QString& name, const QString& icon,
                                const QString& tip, const QList<QKeySequence>& keys,
                                std::function<void()> press) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setIcon(controls::LookIcon(icon));
    const int size = icon.startsWith(u"chevron") ? kSmallIcon : kIcon;
    button->setIconSize(QSize(size, size));
    button->setAccessibleName(tip);
    button->setToolTip(keys.isEmpty() ? tip
                                      : tip + u"（"_s + keys[0].toString(QKeySequence::NativeText) + u"）"_s);
    button->setFocusPolicy(Qt::NoFocus);
    const auto guarded = [press = std::move(press)] { sys::Guarded(press); };
    connect(button, &QToolButton::clicked, this, guarded);
    for (const QKeySequence& key : keys) {
        auto* shortcut = new QShortcut(key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, button, [button] {
            if (button->isEnabled()) button->click();
        });
    }
    bar.addWidget(button);
    return button;
}

// ---------------------------------------------------------------------------------------------- building the
// bar

void Preview::BuildPaging(QHBoxLayout& bar) {
    first_ = AddButton(bar, u"FirstPage"_s, u"page-first"_s, u"第一页"_s, {QKeySequence(Qt::Key_Home)},
                       [this] { desk_->GoToPage(0); });
    previous_ =
        AddButton(bar, u"PreviousPage"_s, u"page-previous"_s, u"上一页"_s, {QKeySequence(Qt::Key_PageUp)},
                  [this] { desk_->GoToPage(desk_->CurrentPage() - 1); });
    page_ = new controls::LineBox;
    page_->setObjectName(u"Page"_s);
    page_->setAccessibleName(u"页码"_s);
    page_->setToolTip(u"页码（Ctrl+G）"_s);
    page_->setFixedWidth(kPageBox);
    page_->setAlignment(Qt::AlignRight);
    page_->SetMaxLength(7);
    controls::SetNumeric(*page_);
    page_->KeyPressed = [this](controls::KeyPress& key) {
        if (!key.IsEnter()) return;
        key.taken = true;
        GoToTypedPage();
    };
    page_->LostFocus = [this] { ShowState(); };
    pages_ = Words(u"PageCount"_s);
    bar.addSpacing(4);
    bar.addWidget(page_);
    bar.addSpacing(4);
    bar.addWidget(pages_);
    bar.addSpacing(6);
    next_ = AddButton(bar, u"NextPage"_s, u"page-next"_s, u"下一页"_s, {QKeySequence(Qt::Key_PageDown)},
                      [this] { desk_->GoToPage(desk_->CurrentPage() + 1); });
    last_ = AddButton(bar, u"LastPage"_s, u"page-last"_s, u"最后一页"_s, {QKeySequence(Qt::Key_End)},
                      [this] { desk_->GoToPage(desk_->Pages() - 1); });
    auto* type = new QShortcut(QKeySequence(u"Ctrl+G"_s), this);
    type->setContext(Qt::WidgetWithChildrenShortcut);
    connect(type, &QShortcut::activated, this, [this] {
        page_->SetFocus();
        page_->selectAll();
    });
}

void Preview::BuildZoom(QHBoxLayout& bar) {
    zoomOut_ = AddButton(bar, u"ZoomOut"_s, u"zoom-out"_s, u"缩小"_s, {QKeySequence(u"Ctrl+-"_s)},
                         [this] { StepZoom(-1); });
    zoom_ = new controls::ComboBox;
    zoom_->setObjectName(u"Zoom"_s);
    zoom_->setAccessibleName(u"显示比例"_s);
    zoom_->setFixedWidth(kZoomBox);
    for (const int zoom : kZooms) zoom_->AddItem(ZoomText(zoom / 100.0));
    zoom_->Click = [this] { TakeTypedZoom(); };
    zoom_->KeyPressed = [this](controls::KeyPress& key) {
        if (!key.IsEnter()) return;
        key.taken = true;
        TakeTypedZoom();
        desk_->setFocus();
    };
    zoom_->LostFocus = [this] { ShowState(); };
    bar.addWidget(zoom_);
    zoomIn_ = AddButton(bar, u"ZoomIn"_s, u"zoom-in"_s, u"放大"_s,
                        {QKeySequence(u"Ctrl++"_s), QKeySequence(u"Ctrl+="_s)}, [this] { StepZoom(1); });
    bar.addSpacing(4);
    fitWidth_ = AddButton(bar, u"FitWidth"_s, u"fit-width"_s, u"适合宽度"_s, {QKeySequence(u"Ctrl+2"_s)},
                          [this] { desk_->SetFit(Desk::Fit::Width); });
    fitPage_ = AddButton(bar, u"FitPage"_s, u"fit-page"_s, u"整页"_s, {QKeySequence(u"Ctrl+0"_s)},
                         [this] { desk_->SetFit(Desk::Fit::Page); });
    for (QToolButton* fit : {fitWidth_, fitPage_}) fit->setCheckable(true);
}

void Preview::BuildSearch(QHBoxLayout& bar) {
    find_ = new controls::LineBox;
    find_->setObjectName(u"Find"_s);
    find_->setAccessibleName(u"查找文字"_s);
    find_->setToolTip(u"查找文字（Ctrl+F）"_s);
    find_->setFixedWidth(kFindBox);
    find_->Change = [this] { BeginSearch(); };
    find_->KeyPressed = [this](controls::KeyPress& key) {
        if (!key.IsEnter()) return;
        key.taken = true;
        StepHit(key.modifiers & Qt::ShiftModifier ? -1 : 1);
    };
    auto* glass = new QLabel;
    glass->setPixmap(controls::LookIcon(u"search"_s).pixmap(QSize(kIcon, kIcon), devicePixelRatioF()));
    glass->setFixedWidth(22);
    glass->setBuddy(find_);
    bar.addWidget(glass);
    bar.addWidget(find_);
    found_ = Words(u"Found"_s);
    bar.addSpacing(6);
    bar.addWidget(found_);
    bar.addSpacing(4);
    hitBefore_ = AddButton(bar, u"HitBefore"_s, u"chevron-up"_s, u"上一处"_s, {QKeySequence(u"Shift+F3"_s)},
                           [this] { StepHit(-1); });
    hitAfter_ = AddButton(bar, u"HitAfter"_s, u"chevron-down"_s, u"下一处"_s, {QKeySequence(u"F3"_s)},
                          [this] { StepHit(1); });
    auto* go = new QShortcut(QKeySequence(u"Ctrl+F"_s), this);
    go->setContext(Qt::WidgetWithChildrenShortcut);
    connect(go, &QShortcut::activated, this, [this] {
        find_->SetFocus();
        find_->selectAll();
    });
}

// ------------------------------------------------------------------------------------------------- pages and
// zoom

void Preview::SetDocument(std::shared_ptr<const Document> document) {
    document_ = std::move(document);
    desk_->SetDocument(document_);
    BeginSearch();
    ShowState();
}

void Preview::FocusPages() {
    desk_->setFocus();
}

QString Preview::Position() const {
    if (!document_) return {};
    return u"%1：%2 %3，共 %4 页 当前为第 %5 页"_s
        .arg(document_->Title(), document_->PaperName(), document_->IsLandscape() ? u"横向"_s : u"纵向"_s)
        .arg(document_->Pages())
        .arg(desk_->CurrentPage() + 1);
}

void Preview::ShowState() {
    const int page = desk_->CurrentPage(), pages = desk_->Pages();
    page_->SetText(QString::number(page + 1));
    pages_->setText(u"/ %1 页"_s.arg(pages));
    for (QToolButton* back : {first_, previous_}) back->setEnabled(page > 0);
    for (QToolButton* forth : {next_, last_}) forth->setEnabled(page + 1 < pages);
    zoom_->SetText(ZoomText(desk_->Zoom()));
    zoomOut_->setEnabled(desk_->Zoom() > Desk::kLeastZoom);
    zoomIn_->setEnabled(desk_->Zoom() < Desk::kMostZoom);
    fitWidth_->setChecked(desk_->CurrentFit() == Desk::Fit::Width);
    fitPage_->setChecked(desk_->CurrentFit() == Desk::Fit::Page);
    if (Moved) Moved();
}

void Preview::GoToTypedPage() {
    const int page = page_->Text().toInt();
    if (page >= 1) desk_->GoToPage(page - 1);
    ShowState();
    desk_->setFocus();
}

void Preview::TakeTypedZoom() {
    bool good = false;
    const double zoom = zoom_->Text().remove(u'%').trimmed().toDouble(&good);
    if (good && std::isfinite(zoom)) desk_->SetZoom(zoom / 100);
    ShowState();
}

void Preview::StepZoom(int by) {
    const double now = std::round(desk_->Zoom() * 100);
    if (by > 0) {
        const auto* next = std::ranges::find_if(kZooms, [&](int zoom) { return zoom > now; });
        if (next != kZooms.end()) desk_->SetZoom(*next / 100.0);
    } else {
        const auto next = std::find_if(kZooms.rbegin(), kZooms.rend(), [&](int zoom) { return zoom < now; });
        if (next != kZooms.rend()) desk_->SetZoom(*next / 100.0);
    }
    ShowState();
}

// ------------------------------------------------------------------------------------------------------
// search

void Preview::BeginSearch() {
    hits_.clear();
    currentHit_ = -1;
    searched_ = 0;
    ShowHits();
    if (document_ && !find_->Text().isEmpty())
        search_.start();
    else
        search_.stop();
}

void Preview::SearchOn() {
    QElapsedTimer slice;
    slice.start();
    while (searched_ < desk_->Pages() && slice.elapsed() < kSlice) {
        std::ranges::move(FindOnPage(*document_, searched_++, find_->Text()), std::back_inserter(hits_));
    }
    if (searched_ == desk_->Pages()) search_.stop();
    if (currentHit_ < 0) {  // the first one on the page that is seen or behind it
        const auto hit = std::ranges::lower_bound(hits_, desk_->CurrentPage(), {}, &Hit::page);
        if (hit != hits_.end())
            currentHit_ = static_cast<int>(hit - hits_.begin());
        else if (!search_.isActive() && !hits_.empty())
            currentHit_ = 0;
    }
    ShowHits();
}

void Preview::ShowHits() {
    desk_->SetHits(hits_, currentHit_);
    const bool any = currentHit_ >= 0;
    for (QToolButton* step : {hitBefore_, hitAfter_}) step->setEnabled(any);
    if (find_->Text().isEmpty())
        found_->setText({});
    else if (any)
        found_->setText(u"%1 / %2 处"_s.arg(currentHit_ + 1).arg(hits_.size()));
    else
        found_->setText(search_.isActive() ? u"…"_s : u"没有找到"_s);
}

void Preview::StepHit(int by) {
    if (hits_.empty() || currentHit_ < 0) return;
    const int count = static_cast<int>(hits_.size());
    currentHit_ = (currentHit_ + by + count) % count;
    ShowHits();
}

}  // namespace report
