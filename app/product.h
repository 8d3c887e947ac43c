// The product's own texts, shown on the frame, the login and the form 关于本系统.
#pragma once

#include <QString>

namespace product {

inline const QString kName = QStringLiteral("Korvane快递业务管理系统");
inline const QString kNotice = QStringLiteral("Korvane快递业务管理系统  版权所有");
inline const QString kMaker = QStringLiteral("Tessik Studio");
inline const QString kMail = QStringLiteral("mailto:service@korvane.example");
inline const QString kSite = QStringLiteral("https://www.korvane.example/");

}  // namespace product
