#pragma once

#include <QString>

#include <functional>

class QWidget;

/// How the files are asked for that photos and employees come from and rows go to; an empty name calls it
/// off.
struct MasterFiles {
    using Ask = std::function<QString(QWidget* over)>;

    Ask photo;
    Ask import;
    Ask exportTo;
};

/// By the usual dialogs.
MasterFiles AskForFiles();
