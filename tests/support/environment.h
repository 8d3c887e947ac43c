// How long a test that can run for ever goes on: short in a build, long where somebody asks for it.
#pragma once

#include <QtGlobal>

namespace tests {

inline int FromEnvironment(const char* name, int otherwise) {
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

}  // namespace tests
