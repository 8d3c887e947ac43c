// 扫描出货: the window of a scanner at the packing table. Each number that ends with Return or Tab is
// released by the test and the statement of 速递单's own 出货, but for a number that no waybill has. The list
// shows what became of it; it prints, and its waybills that are still released print as a manifest, each
// once.
//
// Always holds: a number is shown as released only when its release is committed, each by itself. No message
// box asks anything of the scanner, except whether to wait for a busy file; a refusal, or a statement that
// fails alone, is in the list and sounds. What is scanned while another control has the focus goes to the
// text box. The list is in memory and ends with the form.
#pragma once

#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"
#include "reports/report_settings.h"
#include "waybills/release.h"

#include <QHash>
#include <QLabel>
#include <QStringList>

#include <vector>

class ScanRelease : public ChildForm {
    Q_OBJECT
  public:
    ScanRelease();
    void Load() override;
    void Activated() override;
    QWidget* FirstFocus() const override;

  private:
    class NumberBox;
    /// What became of a scanned number.
    struct Scanned {
        QString at;  ///< HH:mm:ss
        waybills::Brief waybill;
        QString refusal;  ///< "" when it is released
    };

    QWidget* MakeStrip();
    QWidget* MakeVerdict();
    void MakeList();
    void SetCommands();
    void Scan();
    Scanned ReleaseOne(const QString& number);
    /// The reason why the release refuses, with what the list and the waybill say about it.
    QString Reason(const Scanned& scanned, bool known) const;
    void Show(const Scanned& scanned);
    void ShowCounts();
    void AddChannel(const waybills::Brief& waybill);
    void GoToNumber(controls::KeyPress& key);
    void PrintList();
    std::vector<waybills::Brief> StillReleased() const;
    void PrintManifest(const reports::Print& print);

    NumberBox* Txt;
    controls::ComboBox* Cmb;
    QLabel* LabVerdict;
    QLabel* LabCounts;
    controls::FlexGrid* GD;
    CommandBar commands_;
    std::vector<Scanned> scanned_;     ///< in their order; the grid shows the last first
    QHash<QString, QString> firstAt_;  ///< by number in small letters: when it was first scanned
    QStringList channels_;             ///< codes of the combo's items behind the first
    int released_ = 0;
};
