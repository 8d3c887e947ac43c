// The outbound channels: the carriers that consignments are handed to, and the weight brackets of each one's
// own cost standard.
//
// Always holds: the bounds are read from the table when the card is shown, never from the list. A bound of 0
// ends the bounds; the segment before it is the last and has no upper bound. Only the card keeps the number
// of segments (JFD) and the bounds consistent: a hidden bound is stored unchanged. Weights are in kg.
#pragma once

#include "platform/controls/card.h"
#include "records/record_form.h"

/// 出货渠道计价标准: the channels.
class A01 : public RecordForm {
    Q_OBJECT
  public:
    A01();
    void Load() override;

  protected:
    QStringList Headers() const override;
    void RowToCard() override;
    void OpenCard() override;
    void CloseCard() override;

  private:
    void MakeBoxes();
    void MakeNamedBox(const QString& caption, const QString& name, const QString& text);
    void BuildCard();
    QWidget* Sentences();
    QWidget* Segments();
    void WireCard();

    /// Shows or hides a bound and the caption after it.
    void ShowBound(int box, bool shown);
    /// Sets the caption with the upper end of the segment before this bound.
    void CaptionTop(int box);
    void FillBounds(const dao::Recordset& row);
    void LeaveCount();
    void LeaveBound(int box);

    void Menu_Add() override;
    void Menu_edit() override;
    void Menu_del() override;
    void Menu_query() override;
    void Menu_save() override;
    static bool IsUsed(const QString& code);
    bool BoundsFilled() const;
    bool CheckCode();
    QString InsertStatement() const;

    double Number(int box) const;

    QLabel* Lab2[3] = {};
};
