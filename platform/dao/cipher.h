// How a file with a password is locked. All of it is stated wherever such a file is opened, so that an engine
// with other values of its own reads it too.
#pragma once

#include <QByteArray>
#include <QString>

namespace dao {

/// To be run right after the key, in this order. What an engine does not know it ignores: the one of today
/// hashes with SHA1 and has no word for it, later ones have, and hash otherwise unless a setting says so.
inline constexpr const char* kCipherSettings[] = {
    "pragma cipher_page_size=4096",  // bytes
    "pragma cipher_use_hmac=on",
    "pragma cipher_hmac_algorithm=HMAC_SHA1",
    "pragma cipher_kdf_algorithm=PBKDF2_HMAC_SHA1",
    "pragma kdf_iter=64000",  // rounds of the key's derivation
    "pragma fast_kdf_iter=2",
    "pragma cipher_hmac_salt_mask=\"x'3a'\"",
    "pragma cipher_hmac_pgno=le",
    "pragma cipher_plaintext_header_size=0",
};

/// The password in ";PWD=..."; "" if there is none.
QByteArray PasswordIn(const QString& connect);

}  // namespace dao
