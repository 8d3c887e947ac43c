// What the product says of itself, on the frame, the login and the information box.
#pragma once

#include <QString>

namespace product {

inline const QString kName = QStringLiteral("Korvane快递业务管理系统");
inline const QString kNotice = QStringLiteral("Korvane快递业务管理系统  版权所有");
inline const QString kMaker = QStringLiteral("Tessik Studio");
inline const QString kMail = QStringLiteral("mailto:service@korvane.example");
inline const QString kSite = QStringLiteral("https://www.korvane.example/");

}  // namespace product
