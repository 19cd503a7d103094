#pragma once

#include "company/master_model.h"
#include "core/code_lists.h"

#include <QString>

#include <vector>

enum class CodeKind { Department, Division, Status, AbsenceType };

/// What the codes of a kind are called on screens.
QString CodeKindName(CodeKind kind);

/// One of the company's lists of codes. Functions throw DatabaseError, ProgramError with a text for the user
/// where a code is not allowed, ConflictError where another desk was faster; nothing is written then.
class CodeTable {
public:
    CodeTable(Connection& connection, CodeKind kind) : connection_(connection), kind_(kind) {}

    /// In the order in which a person looks for a code; statuses in their own.
    std::vector<CodeName> ReadAll() const;

    /// How many rows name the code: employees, or cards.
    int UseOf(const QString& code) const;
    /// "12 karyawan", "3 kartu".
    QString UseText(int rows) const;

    /// A new status goes to the end of the list.
    void Add(const std::vector<CodeName>& codes) const;
    /// `shown` is what stood there when it was read.
    void ChangeName(const CodeName& shown, const QString& name) const;
    /// Statuses and absence types both stand on cards: a code that is in both lists stays in both.
    void Rename(const QString& code, const QString& to, CarryAlong carry) const;
    void Remove(const QString& code) const;

private:
    /// Throws when the code cannot stand there, besides the one that it replaces.
    void CheckNew(const QString& code, const QString& instead = {}) const;
    void CheckNotOwn(const QString& code) const;
    void RenameUses(const QString& code, const QString& to) const;

    Connection& connection_;
    CodeKind kind_;
};
