// What the product says of itself, on the frame, the login and the information box.
#pragma once

#include <QStringView>

namespace product {

inline constexpr QStringView kName = u"Korvane快递业务管理系统";
inline constexpr QStringView kNotice = u"Korvane快递业务管理系统  版权所有";
inline constexpr QStringView kMaker = u"Tessik Studio";
inline constexpr QStringView kMail = u"mailto:service@korvane.example";
inline constexpr QStringView kSite = u"https://www.korvane.example/";

}  // namespace product
