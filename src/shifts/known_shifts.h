#pragma once

#include "database/connection.h"

#include <QHash>
#include <QStringList>

/// The company's shift codes as they were read last, and what a typed text means among them.
class KnownShifts {
public:
    /// Throws DatabaseError; what was known stays then.
    void Read(Connection& connection);

    bool Has(const QString& code) const { return hours_.contains(code); }
    /// In the order of their table.
    const QStringList& Codes() const { return codes_; }
    /// "08:00 - 17:00"; empty for a code that has none.
    QString HoursOf(const QString& code) const { return hours_.value(code); }

    /// The code that a typed text means: without blanks around it, in the spelling of the shift codes where
    /// it differs by letter case only. Throws ProgramError for a text with a single quote, which no statement
    /// can name.
    QString CodeTyped(const QString& typed) const;

private:
    QStringList codes_;
    QHash<QString, QString> hours_;
};
