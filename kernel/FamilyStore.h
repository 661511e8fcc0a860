#pragma once
#include <QString>
#include <memory>
#include <optional>
#include <vector>

class Database;

// The SQL behind families: tables Familia and RFamilia, and the membership of users in groups
// (RGrup), on the kernel's connection. A family is writable by everybody when RFamilia gives
// the group "EVERYBODY" the write right; every user belongs to that group without a row.
// Failures throw KernelError.
class FamilyStore
{
public:
    static const QString EveryBodyGroup;

    struct Row
    {
        QString id;
        QString description;
        bool everyBody = false; // Tothom

        bool operator==(const Row&) const = default;
    };

    enum class Right { None, Read, Write };

    explicit FamilyStore(std::shared_ptr<Database> db);

    // Every family, by ID.
    std::vector<Row> ReadAll() const;
    std::optional<Row> Read(const QString& familyID) const;
    // Adds the Familia row, readable by everybody or not; when ownerGroup names a group, that
    // group gets the write right on it.
    void Add(const Row& row, const QString& ownerGroup);
    // Removes the Familia row and the rights on it; the carts stay.
    void Remove(const QString& familyID);
    bool GroupExists(const QString& groupID) const;

    // The best right that the user's groups have on the family.
    Right RightOf(const QString& userID, const QString& familyID) const;
    bool EveryBodyWrite(const QString& familyID) const;

private:
    std::shared_ptr<Database> m_db;
};
