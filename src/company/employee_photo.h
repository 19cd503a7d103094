#pragma once

#include "core/program_folder.h"

#include <QSaveFile>

/// An employee's photo on its way into the folder "photos" beside the database: at most 800 pixels wide or
/// high, as a JPEG under the employee's number. It is there once it is kept; a former one stays until then.
class NewPhoto {
public:
    /// Throws ProgramError when the picture cannot be read or written.
    NewPhoto(const QString& picture, const QString& databaseFile, const QString& nip);

    /// As the employee's record names it: seen from the program folder.
    QString PathFrom(const ProgramFolder& folder) const;
    /// Throws ProgramError.
    void Keep();

private:
    [[noreturn]] void Refuse() const;

    QSaveFile file_;
};
