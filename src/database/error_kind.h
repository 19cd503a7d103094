#pragma once

/// What can go wrong in the rooms below the windows. The user is told each in words of its own
/// (core/error_words), which take the error's details in order.
enum class ErrorKind {
    Told,        ///< the description is the user's text already
    Conflict,    ///< another desk changed or removed what was read; detail: the table or thing
    CardChanged, ///< details: card, employee, day; then field, stored and typed value of each change
    CardOfOther, ///< details: card, the employee whose card it is
    CardInUse,   ///< details: card, the day that it holds already

    // A statement was refused before it reached the engine.
    QuoteInText,
    QuoteInValue,
    TextNotClosed,
    DateNotClosed,
    BracketNotClosed,
    NameNotClosed,
    BracketInName,
    SecondStatement,
    Comment,
    NotADate,      ///< detail: what stands there
    OneTextNeeded, ///< detail: the saved query
    NoTableName,
    UnknownColumn, ///< details: column, table

    // The engine failed. Details: the engine's own words and, when a file was to be opened, its path.
    Failed,
    Locked,
    ReadOnly,
    FileMoved, ///< the opened file no longer stands under its name
    ReadOrWrite,
    Damaged,
    DiskFull,
    CannotOpen,
    Constraint,
    NoDatabase,

    // The database's file and schema. Detail: the file's path, unless told otherwise.
    FileMissing,
    FileExists,
    FileNotMade, ///< details: path, why
    Foreign,
    Newer,       ///< details: the database's version, the newest that the program knows
    Incomplete,  ///< detail: the table or column that is missing
    CopyNotMade, ///< detail: the copy's path

    // Files that come in or go out. Detail: the file's path, unless told otherwise.
    FileUnreadable, ///< details: path, why
    NoTextFile,
    QuoteOpen,   ///< details: path, line
    TooManyRows, ///< detail: the most that a workbook holds
    NoSuchTable, ///< detail: the table
    AccessForeign,
    AccessProtected,
    AccessDamaged, ///< details: path, why in English
    NoTables,      ///< no detail

    NumberTooLarge, ///< detail: the number
    AmountTooLarge, ///< details: hours, rate
};
inline constexpr int ErrorKindCount = static_cast<int>(ErrorKind::AmountTooLarge) + 1;
