#pragma once
#include "kernelapi/iCarts.h"
#include <QHash>

class CartWorld;
class Macro;

// The cart catalogue. A live cart stays the same object while someone holds it; a cart is
// deleted, copied or moved in one transaction, and the families concerned hear of it.
// A copy of a sound cart gets a copy of the audio file (and its energy file) named after the
// new ID; a move keeps the file and renumbers the macro steps that refer to the cart.
class Carts : public iCarts
{
    Q_OBJECT
public:
    explicit Carts(std::shared_ptr<CartWorld> world, QObject* parent = nullptr);
    ~Carts() override;

    bool Exists(const QString& cartID) const override;
    int NumberOf(const QString& cartID) const override;
    QString FamilyIDOf(const QString& cartID) const override;
    std::shared_ptr<iCart> NewCart() override;
    std::shared_ptr<iCartList> NewCollection() override;
    std::shared_ptr<iMacro> NewMacro() override;
    std::shared_ptr<iCart> Cart(const QString& cartID) override;
    Outcome DeleteCart(const QString& cartID, bool removeFile) override;
    bool CopyCart(const QString& sourceID, const QString& destinationID) override;
    bool MoveCart(const QString& sourceID, const QString& destinationID) override;

    // The live macro of an ID, loaded when nobody holds it; throws KernelError when the ID is
    // not a macro.
    std::shared_ptr<iMacro> MacroByID(const QString& macroID);

private:
    // Checks both IDs of a copy or a move; the reason of a refusal, or empty.
    QString Refusal(const QString& sourceID, const QString& destinationID) const;
    bool Refuse(const QString& procedure, const QString& reason) const;
    // Copies the audio and energy files of a sound for a new cart; the new stored name.
    QString CopySoundFile(const QString& sourceID, const QString& destinationID, QStringList& made) const;

    std::shared_ptr<CartWorld> m_world;
    QHash<QString, std::weak_ptr<Macro>> m_macros;
};
