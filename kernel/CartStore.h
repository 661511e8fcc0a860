#pragma once
#include "kernel/CartRecord.h"
#include <QSqlQuery>
#include <QStringList>
#include <QVariantList>
#include <memory>
#include <optional>
#include <vector>

class Database;

// The SQL behind carts and macros: tables Cart, Sound and RMacro, on the kernel's connection.
// Texts are written trimmed and cut to their declared sizes. Type letters: "S" sound, "M"
// macro, "C" control, "X" separator, "R" reserved; any other letter reads as unknown.
// Multi-row writes are left to the caller's transaction. Failures throw KernelError.
class CartStore
{
public:
    explicit CartStore(std::shared_ptr<Database> db);

    Database& Db() const { return *m_db; }

    static QString Letter(CartType type);
    static CartType TypeOf(const QString& letter);

    std::optional<CartRecord> Read(const QString& id) const;
    // The carts of a family in slot order, in one query; rows whose ID is no cart ID are left out.
    std::vector<CartRecord> ReadFamily(const QString& familyID) const;
    // The family's carts after the ID `after` (the family ID itself for the first), at most limit.
    std::vector<CartRecord> ReadFamilyPage(const QString& familyID, const QString& after, int limit) const;
    int CountFamily(const QString& familyID) const;
    bool Exists(const QString& id) const;
    // Inserts or updates the Cart row, and drops the Sound or RMacro rows that its type no
    // longer has. True when the row was inserted.
    bool Write(const CartRecord& record);
    void SetTime(const QString& id, qint32 ms);
    // Removes the cart's Cart and RMacro rows (the sound is removed through its object).
    void Delete(const QString& id);
    // Copies the Cart, Sound and RMacro rows of source under destination; the copy's Sound
    // row names fileName.
    void Copy(const QString& sourceID, const QString& destinationID, const QString& fileName);
    // Renumbers a cart: its rows and the macro steps that refer to it.
    void Move(const QString& sourceID, const QString& destinationID);

    bool HasSound(const QString& id) const;
    // The stored properties of a cart in their text form; empty when it has none.
    QString ReadProperties(const QString& id) const;
    void WriteProperties(const QString& id, const QString& text);
    // The stored Filename of a sound cart; empty when it has none.
    QString FileNameOf(const QString& id) const;
    // How many Sound rows name this file.
    int FileUsers(const QString& fileName) const;

    // The cart IDs of a macro's steps in Index order; a blank step is an empty ID.
    QStringList Steps(const QString& macroID) const;
    void WriteSteps(const QString& macroID, const QStringList& cartIDs);

private:
    // The rows of a query of CartColumns whose IDs are cart IDs.
    static std::vector<CartRecord> Records(QSqlQuery query);
    QVariantList SoundRow(const QString& id) const;

    std::shared_ptr<Database> m_db;
};
