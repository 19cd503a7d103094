#pragma once

#include <QString>

/// The folder that holds the settings, the pictures, the report file and, as a rule, the database.
class ProgramFolder {
public:
    explicit ProgramFolder(const QString& path);

    /// Without a trailing separator.
    const QString& Path() const { return path_; }

    /// The folder's path followed by a name that begins with "\", word for word.
    QString Joined(QStringView name) const { return path_ + name.toString(); }

    /// The existing file of that name ("\images\back.gif"), in any letter case; empty when there is none.
    QString Existing(QStringView name) const;

private:
    QString path_;
};
