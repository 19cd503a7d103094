#pragma once

#include <cstdint>

/// What the program that reads an Access file (access_rows.cpp) writes on its standard output: messages, each
/// a byte that says what it is and its texts. A text is its length in four bytes, the lowest first, and
/// UTF-8; null is the length alone. What is wrong with the file is a message, too. The stream is whole only
/// when it ends with Complete: a file that is damaged may end the reader anywhere.
namespace AccessStream {

inline constexpr char Table = 'T';  ///< name, number of rows, number of columns, then each column's name
inline constexpr char Linked = 'L'; ///< name of a table whose rows stand in another file
inline constexpr char Row = 'R'; ///< the values of a row of the last table told, in the order of its columns
inline constexpr char Complete = 'C';
inline constexpr char Foreign = 'F';   ///< no Access file
inline constexpr char Protected = 'P'; ///< by a password
inline constexpr char Damaged = 'D';   ///< what is wrong

inline constexpr std::uint32_t Null = 0xFFFFFFFF;
/// In bytes; no text of a sound file is longer.
inline constexpr std::uint32_t LongestText = 1 << 18;

/// Stands before the name of a column whose kind of values is not told: pictures and the like.
inline constexpr char Untold = '?';
/// And before all others.
inline constexpr char Told = '=';

} // namespace AccessStream
