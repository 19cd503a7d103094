#include "core/passwords.h"

#include "database/database_error.h"

#include <sodium.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int HashNumber = 90030;

/// What a stored text of two hashes begins with. The hashes hold neither of the two signs.
constexpr QStringView Prefix = u"sandi2:";
constexpr QChar Between = u'|';

/// 19 MiB and two passes: about 25 ms on an office machine.
constexpr unsigned long long Passes = 2;
constexpr size_t Memory = size_t{19} * 1024 * 1024;

QString Hash(const QString& text) {
    // Both may be called again and again, from the first use on.
    static const bool ready = sodium_init() >= 0;
    const QByteArray bytes = text.toUtf8();
    char hash[crypto_pwhash_STRBYTES] = {};
    if (!ready
        || crypto_pwhash_str(hash, bytes.constData(), static_cast<unsigned long long>(bytes.size()), Passes,
                             Memory)
               != 0)
        throw ProgramError(HashNumber, u"Password tidak dapat disimpan: memori tidak cukup."_s);
    return QString::fromLatin1(hash);
}

bool IsHashOf(const QString& hash, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return crypto_pwhash_str_verify(hash.toLatin1().constData(), bytes.constData(),
                                    static_cast<unsigned long long>(bytes.size()))
           == 0;
}

/// The hash of the text as typed (0) or in upper case (1).
QString PartOf(const QString& stored, int part) {
    return stored.sliced(Prefix.size()).section(Between, part, part);
}

} // namespace

QString Passwords::Hashed(const QString& password) {
    return Prefix.toString() + Hash(password) + Between + Hash(password.toUpper());
}

bool Passwords::IsHashed(const QString& stored) {
    return stored.startsWith(Prefix);
}

bool Passwords::MatchesExactly(const QString& typed, const QString& stored) {
    if (IsHashed(stored))
        return IsHashOf(PartOf(stored, 0), typed);
    return !stored.isNull() && stored == typed;
}

bool Passwords::MatchesAnyCase(const QString& typed, const QString& stored) {
    if (typed.isEmpty())
        return false;
    return IsHashed(stored) ? IsHashOf(PartOf(stored, 1), typed.toUpper())
                            : typed.toUpper() == stored.toUpper();
}
