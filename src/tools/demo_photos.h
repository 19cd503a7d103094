#pragma once

#include <QString>
#include <QStringList>

/// The portraits of the demo company's employees, in a folder "photos" beside the database file. What was
/// written is removed again unless it is kept.
class DemoPhotos {
public:
    explicit DemoPhotos(const QString& databasePath);
    ~DemoPhotos();
    DemoPhotos(const DemoPhotos&) = delete;
    DemoPhotos& operator=(const DemoPhotos&) = delete;

    /// Leaves files of these names alone where they stand already. Throws ProgramError.
    void Write();
    void Keep();

private:
    QString folder_;
    QStringList written_;
    bool folderIsNew_ = false;
};
