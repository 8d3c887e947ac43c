// How a file with a password is locked. Stated wherever such a file is opened, so that a later release of the
// engine, with other values of its own, reads it too.
#pragma once

namespace dao {

inline constexpr int kCipherPageSize = 4096;   ///< bytes
inline constexpr int kKeyIterations = 64'000;  ///< rounds of the key's derivation

}  // namespace dao
