// What the small master forms say and do differently, side by side.
#include "records/small_master.h"

using namespace Qt::StringLiterals;

const SmallMasterSettings CourierSettings = {
    .form = u"A04"_s,
    .caption = u"外务员资料"_s,
    .listTab = u"外务员列表"_s,
    .cardTab = u"外务员资料"_s,
    .group = u"外务员"_s,
    .table = u"M04"_s,
    .keyCaption = u"姓 名"_s,
    .noteCaption = u"备 注"_s,
    .headers = {u"姓名"_s, u"备注"_s},
    .keyLimit = 4,
    .noteLimit = 49,
    .noteRows = 3,
    .requiredBoxes = 1,
    .usedIn = u"select F602 FROM B01 WHERE F602='"_s,
    .cascade = u"delete from B01 where F602='"_s,
    .duplicateTest = u"select F1 from M04 where F1='"_s,
    .duplicateText = u"系统中已经有其它外务员使用了这个姓名，请重新设置!"_s,
};
