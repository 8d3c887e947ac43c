// The carriers' cost zones: what a channel is paid for delivering to the places of a zone. A price means
// nothing without its place: its weight bracket is the channel's (channels.h), by position. Prices are in
// yuan, a tick lets its segment run as first weight plus continuation.
//
// Always holds: captions are made from the channel's row as it is now; which heavy segments are seen goes by
// the number that the zone was saved with, until a channel is chosen. A price or tick out of sight keeps what
// it holds and is stored with it. Zones of a channel that is gone stay in the table and out of the list.
#pragma once

#include "tariffs/zone_form.h"

#include <array>

/// 出货渠道区域成本: ChannelZone with its ChannelZoneAreas and costs, tables M011 and M0111.
class A011 : public ZoneForm {
    Q_OBJECT
  public:
    A011();
    void Load() override;

  protected:
    void RowToCard() override;
    QString InsertStatement() const override;
    QStringList SavedLine() const override;
    bool RequireChoice() override;
    void Menu_Add() override;
    void LookLocked(bool locked) override;

  private:
    void MakeTicks();
    controls::CheckBox& Chk(int box) const;
    void FillChannels();
    void ChooseChannel();
    void ProposeCode();
    void BuildChannelCaptions(const QString& code);
    void CaptionPrice(int box, const QString& caption);
    /// A price with its caption and, if it is a heavy one, its tick.
    void ShowPrice(int box, bool shown);
    void ReadTicks();

    std::array<controls::CheckBox*, 10> ticks_{};  ///< Chk(13) to Chk(22), each right of its price
    QString channelName_;                          ///< of the zone that is being saved
    controls::LineBox* TxtD;                       ///< the number of heavy segments, out of sight
};
