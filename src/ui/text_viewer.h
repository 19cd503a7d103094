#pragma once

#include <QDialog>

/// A text file to be read, in a fixed-width font and never wrapped.
class TextViewer : public QDialog {
    Q_OBJECT
public:
    /// Throws ProgramError when the file cannot be read.
    TextViewer(const QString& path, QWidget* parent);
};

/// Shows a text file in a TextViewer, and does not wait until it is closed. Throws ProgramError when the file
/// cannot be read.
void OpenTextViewer(const QString& path);

/// Shows a text file in the system's viewer: Notepad on Windows, the desktop's own elsewhere; in a TextViewer
/// where none starts.
void ShowTextFile(const QString& path);
