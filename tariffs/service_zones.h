// The company's own selling zones with their list prices. The position of a price determines its weight
// bracket, which is that of the pricing standard (tariffs/brackets.h).
#pragma once

#include "tariffs/zone_form.h"

/// 本公司速递区域资料与报价: ServiceZone with its ServiceZoneAreas and list prices, tables M02 and M021.
class A02 : public ZoneForm {
    Q_OBJECT
  public:
    A02();
    void Load() override;

  protected:
    void RowToCard() override;
    QString InsertStatement() const override;
    QStringList SavedLine() const override;

  private:
    void BuildBracketCaptions();
};
