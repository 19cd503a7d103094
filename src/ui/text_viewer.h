#pragma once

#include <QDialog>

/// A text file to be read, in a fixed-width font and never wrapped. It keeps the text as it was read. When
/// the window below it is left, it stays with the one below that.
class TextViewer : public QDialog {
    Q_OBJECT
public:
    /// Throws ProgramError when the file cannot be read.
    TextViewer(const QString& path, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void StayOver(QWidget* window);
};

/// Shows a text file in a TextViewer, and does not wait until it is closed. Throws ProgramError when the file
/// cannot be read.
void OpenTextViewer(const QString& path);

/// Shows a text file in the system's viewer: Notepad on Windows, the desktop's own elsewhere; in a TextViewer
/// where none starts.
void ShowTextFile(const QString& path);
