#pragma once

#include <QString>

#include <vector>

/// How an employee's working days come about.
enum class WorkPlan {
    Office,    ///< Monday to Friday, written into the roster
    Warehouse, ///< Monday to Saturday, without a roster
    Crew       ///< Monday to Saturday in three shifts that change every week, by the roster
};

struct DemoEmployee {
    QString nip;
    QString nama;
    QString dept;
    QString divisi;
    QString pathImage; ///< empty for an employee without a photo
    QString empType;
    double gp = 0;
    double rateOT = 0;
    double tMakan = 0;
    WorkPlan plan = WorkPlan::Office;
    int crew = 0; ///< 0, 1 or 2: which of the three shifts the crew starts with
    int number = 0;

    bool HasRoster() const { return plan != WorkPlan::Warehouse; }
};

/// The first `count` employees of the demo company. Photos are named relative to the program's folder; the
/// photo of one employee does not exist.
std::vector<DemoEmployee> MakeDemoStaff(int count);
