#pragma once

#include "exchange/punch_import.h"

#include <QHash>

/// Whose numbers they are: those that the devices know, then the employees' own. A number that two people
/// have is nobody's. Throws DatabaseError.
QHash<QString, QString> NumberOwners(Connection& connection);

/// The lines that were kept as they came. All functions throw DatabaseError.
class KeptPunches {
public:
    /// Reads the lines of that file, and of all files those whose number nobody had.
    KeptPunches(Connection& connection, const QString& file);

    /// The lines of other files whose number somebody has now.
    std::vector<PunchLine> Unknown(const QHash<QString, QString>& owners) const;

    /// Keeps the lines that are new, of which the first `ownLines` are the file's, and what became of those
    /// that waited. What came of a line once stays told. Part of the caller's transaction.
    void Write(Connection& connection, const std::vector<PunchLine>& lines, size_t ownLines) const;

private:
    struct Kept {
        QString content;
        QString outcome;
    };

    QMultiHash<int, Kept> ofFile_; ///< by line
    std::vector<PunchLine> unknown_;
};
