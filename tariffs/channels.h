// The outbound channels: through whom consignments leave, and the weight brackets of each one's own cost
// standard.
//
// Always holds: the bounds are read from the table when the card is shown, never from the list. A bound of 0
// ends them; the segment before it is the open last one. The number of segments (JFD) and the bounds are kept
// in step by the card alone: a hidden bound is stored as it stands. Weights are in kg.
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

    /// A bound and the caption behind it.
    void ShowBound(int box, bool shown);
    /// The caption that tells the top of the segment before this bound.
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
