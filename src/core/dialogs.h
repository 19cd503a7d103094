#pragma once

#include <QString>

/// How the rooms below the windows speak to the user. Windows show message boxes; tests answer in advance.
class Dialogs {
public:
    enum class Icon { None, Information, Exclamation };
    enum class Answer { Yes, No, Cancel };

    virtual ~Dialogs() = default;

    /// Shows a message with an OK button and waits until it is closed.
    virtual void Show(Icon icon, const QString& text) = 0;

    /// Asks a question with "Ya", "Tidak" and "Batal", of which Enter gives the suggested one; leaving it
    /// without an answer is Cancel.
    virtual Answer Ask(const QString& question, Answer suggested) = 0;
    Answer Ask(const QString& question) { return Ask(question, Answer::Yes); }

    void Plain(const QString& text) { Show(Icon::None, text); }
    void Inform(const QString& text) { Show(Icon::Information, text); }
    void Warn(const QString& text) { Show(Icon::Exclamation, text); }
};
