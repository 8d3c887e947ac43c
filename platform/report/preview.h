// The preview of a report: its own bar over the pages. All that the bar does has a key.
#pragma once

#include "platform/controls/box.h"
#include "platform/report/desk.h"

#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <QWidget>

#include <functional>

class QHBoxLayout;

namespace report {

class Preview : public QWidget {
    Q_OBJECT
  public:
    explicit Preview(QWidget* parent);

    void SetDocument(std::shared_ptr<const Document> document);
    /// "对帐明细表：A4 纵向，共 3 页 当前为第 1 页".
    QString Position() const;
    void FocusPages();

    std::function<void()> Save;    ///< 另存为 PDF
    std::function<void()> Reload;  ///< F5
    std::function<void()> Moved;   ///< another page is the current one

  private:
    void BuildPaging(QHBoxLayout& bar);
    void BuildZoom(QHBoxLayout& bar);
    void BuildSearch(QHBoxLayout& bar);
    QToolButton* AddButton(QHBoxLayout& bar, const QString& name, const QString& icon, const QString& tip,
                           const QList<QKeySequence>& keys, std::function<void()> press);
    void GoToTypedPage();
    void TakeTypedZoom();
    void StepZoom(int by);
    void ShowState();

    void BeginSearch();
    void SearchOn();
    void ShowHits();
    void StepHit(int by);

    std::shared_ptr<const Document> document_;
    Desk* desk_;
    controls::LineBox* page_ = nullptr;
    QLabel* pages_ = nullptr;
    controls::ComboBox* zoom_ = nullptr;
    controls::LineBox* find_ = nullptr;
    QLabel* found_ = nullptr;
    QToolButton* first_ = nullptr;
    QToolButton* previous_ = nullptr;
    QToolButton* next_ = nullptr;
    QToolButton* last_ = nullptr;
    QToolButton* zoomOut_ = nullptr;
    QToolButton* zoomIn_ = nullptr;
    QToolButton* fitWidth_ = nullptr;
    QToolButton* fitPage_ = nullptr;
    QToolButton* hitBefore_ = nullptr;
    QToolButton* hitAfter_ = nullptr;

    QTimer search_;  ///< one slice of the search each time
    std::vector<Hit> hits_;
    int currentHit_ = -1;
    int searched_ = 0;  ///< pages
};

}  // namespace report
