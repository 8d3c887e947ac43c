// Where the two forms of zones differ: a row of settings each. What no setting can say, a form of zones does
// in routines of its own (service_zones.h, channel_zones.h).
#pragma once

#include "records/query.h"

#include <QString>
#include <QStringList>

#include <vector>

/// The place of a text box of the zone itself in the left half of the card.
struct ZonePlace {
    int box;              ///< or ChoiceField
    int row, pair, span;  ///< as in controls::Card
};
/// What is chosen of a list, with its caption.
constexpr int ChoiceField = -1;
constexpr int NoTextBox = -1;

/// What a zone form says and does differently. Boxes are indexes of Txt, columns those of GD.
struct ZoneSettings {
    QString form;  ///< "A02"
    QString caption, listTab, cardTab;
    QString table, areaTable;       ///< "M02", "M021"
    QStringList headers;            ///< one for each column
    int shownCols;                  ///< the columns behind are out of sight
    int loadedCols;                 ///< the columns that a load fills
    int codeCol, nameCol;           ///< of the list
    std::vector<QString> captions;  ///< of all boxes, as designed
    std::vector<ZonePlace> places;  ///< in the order of Tab
    int englishName, days;          ///< boxes; Txt(0) is the code, Txt(1) the name
    int unused;                     ///< fills the index, is never shown nor handled; or NoTextBox
    int firstPrice, lastPrice;      ///< boxes
    int pricesInARow;               ///< of the heavy ones; ticks beside them leave space for fewer
    QString priceGroup;             ///< "报价(元)"
    QString negativePrice;          ///< the refusal
    QString priceNote;              ///< Label1 below the prices; may be empty
    QString choiceCombo;            ///< control name
    /// Shows in browsing what was chosen, and its caption is the choice's. : the choice is seen in an
    /// edit only, and its caption is a label of its own.
    int choiceBox;
    QString choiceLabel, choiceCaption;  ///< that label's name and text
    std::vector<int> inputSwitches;      ///< boxes that Enter leaves with Ctrl+Space
    QStringList cascades;                ///< would take along what uses a zone, up to the code
    /// Kept on purpose: its statement has fewer columns than a load fills. Of several hits the operator sees
    /// the first and then the engine's message.
    SearchTable search;
    QString searchTail;  ///< follows the conditions
};

namespace selling_zone {
enum Box {
    Code,
    Name,
    EnglishName,
    Days,
    Remark,
    Unused,
    FirstPrice = 9,
    LastPlainPrice = 12,
    LastPrice = 27
};
}  // namespace selling_zone

namespace cost_zone {
enum Box {
    Code,
    Name,
    ChannelName,
    EnglishName,
    Days,
    Remark,
    AreaEnglish = 7,
    FirstPrice = 9,
    LastPlainPrice = 12,
    FirstHeavy = 13,
    LastPrice = 22
};

enum Column { ChannelNameCol, CodeCol, NameCol, DaysCol, RemarkCol, ChannelCol, EnglishCol, FirstPriceCol };
constexpr int SegmentsCol = 21;
constexpr int Columns = 22;
}  // namespace cost_zone

const ZoneSettings& SellingZoneSettings();  ///< A02
const ZoneSettings& CostZoneSettings();     ///< A011
