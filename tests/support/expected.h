// Long outputs are compared with expected files. RENEW_EXPECTED=1 in the environment writes them anew:
//
//     RENEW_EXPECTED=1 ctest --test-dir build/release -R SampleReports
#pragma once

#include "tests/support/files.h"

namespace tests {

inline void ExpectAsInFile(const QString& path, const QString& text) {
    if (qEnvironmentVariableIsSet("RENEW_EXPECTED")) Write(path, text.toUtf8());
    EXPECT_EQ(text.toStdString(), Bytes(path).toStdString()) << path.toStdString();
}

}  // namespace tests
