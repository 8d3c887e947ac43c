// How a report gets to the operator: the form Prnt with the report control in it, and the run of a report.
#pragma once

#include "app/child_form.h"
#include "platform/report/report_control.h"

#include <QLabel>
#include <QStringList>

/// 打印.
class Prnt : public ChildForm {
    Q_OBJECT
  public:
    Prnt();

    void Load() override;
    void Activated() override;

    report::ReportControl* Cry;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Menu_prnt();
    void Menu_Rtn() { Unload(); }

    QLabel* Label1;  ///< the preview covers it
};

/// The last steps of every print, when the work table is filled: Prnt is shown, and the layout of that file
/// name runs into its preview with the formulas ("name='value'") in their order. The pointer is the hourglass
/// meanwhile. Raises what the report control raises.
void RunReport(const QString& layout, const QStringList& formulas);

/// One formula as text.
QString Formula(const QString& name, const QString& value);

/// Whether the layout is beside the program; else a message box shows those words behind its name.
bool LayoutIsThere(const QString& layout, const QString& lost);
