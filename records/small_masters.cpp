// What the small master forms say and do differently, side by side.
//
// Two rows look at a column of another form's, and are meant to: the salespersons (A030) ask and take along
// by F602, the couriers' column, and speak of a courier in their message; the incident reasons (A06) ask and
// take along by F201, the origins' column.
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
    .keySpan = 1,
    .noteRows = 3,
    .requiredBoxes = 1,
    .usedIn = u"select F602 FROM B01 WHERE F602="_s,
    .cascade = u"delete from B01 where F602="_s,
    .duplicateTest = u"select F1 from M04 where F1="_s,
    .duplicateNamesKey = false,
    .duplicateText = u"系统中已经有其它外务员使用了这个姓名，请重新设置!"_s,
};

const SmallMasterSettings SalespersonSettings = {
    .form = u"A030"_s,
    .caption = u"业务员资料"_s,
    .listTab = u"业务员列表"_s,
    .cardTab = u"业务员资料"_s,
    .group = u"业务员"_s,
    .table = u"M030"_s,
    .keyCaption = u"姓 名"_s,
    .noteCaption = u"备 注"_s,
    .headers = {u"姓名"_s, u"备注"_s},
    .keyLimit = 20,
    .noteLimit = 49,
    .keySpan = 2,
    .noteRows = 3,
    .requiredBoxes = 1,
    .usedIn = u"select F602 FROM B01 WHERE F602="_s,  // the couriers' column
    .cascade = u"delete from B01 where F602="_s,      // likewise
    .duplicateTest = u"select F1 from M030 where F1="_s,
    .duplicateNamesKey = false,
    .duplicateText = u"系统中已经有其它外务员使用了这个姓名，请重新设置!"_s,  // of a courier
};

const SmallMasterSettings OriginSettings = {
    .form = u"A05"_s,
    .caption = u"始发地资料"_s,
    .listTab = u"始发地列表"_s,
    .cardTab = u"始发地资料"_s,
    .group = u"始发地"_s,
    .table = u"M05"_s,
    .keyCaption = u"始发地名称"_s,
    .noteCaption = u"始发地电话"_s,
    .headers = {},
    .keyLimit = 4,
    .noteLimit = 49,
    .keySpan = 1,
    .noteRows = 1,
    .requiredBoxes = 2,
    .usedIn = u"select F201 FROM B01 WHERE F201="_s,
    .cascade = u"delete from B01 where F201="_s,
    .duplicateTest = u"select F2 from M05 where F1="_s,
    .duplicateNamesKey = true,
    .duplicateText = u"已经存在!"_s,
};

const SmallMasterSettings IncidentSettings = {
    .form = u"A06"_s,
    .caption = u"速递事故原因设置"_s,
    .listTab = u"事故原因列表"_s,
    .cardTab = u"事故原因资料"_s,
    .group = u"事故原因"_s,
    .table = u"M06"_s,
    .keyCaption = u"事故原因"_s,
    .noteCaption = u"备注信息"_s,
    .headers = {},
    .keyLimit = 50,
    .noteLimit = 49,
    .keySpan = 3,
    .noteRows = 1,
    .requiredBoxes = 2,
    .usedIn = u"select F201 FROM B01 WHERE F201="_s,  // the origins' column
    .cascade = u"delete from B01 where F201="_s,      // likewise
    .duplicateTest = u"select F2 from M06 where F1="_s,
    .duplicateNamesKey = true,
    .duplicateText = u"已经存在!"_s,
};
