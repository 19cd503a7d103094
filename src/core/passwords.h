#pragma once

#include <QString>

/// Passwords as they are stored. One set by this program is kept as two Argon2id hashes in one text: of the
/// password as it was typed and of the same in upper case, so that both comparisons go on to hold: letter by
/// letter for a supervisor, without regard to case at the clock. Older databases hold the text itself, which
/// compares as it always did.
namespace Passwords {

/// The text to be stored. Takes some hundredths of a second, as each of the comparisons does: long enough to
/// make guessing slow, short enough for a queue. Throws ProgramError when there is not memory enough.
QString Hashed(const QString& password);

bool IsHashed(const QString& stored);

/// Letter by letter. Nothing compares with a null text.
bool MatchesExactly(const QString& typed, const QString& stored);
/// Without regard to letter case; an empty password never passes.
bool MatchesAnyCase(const QString& typed, const QString& stored);

} // namespace Passwords
