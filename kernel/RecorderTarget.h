#pragma once
#include <QString>
#include <memory>
#include <optional>

class AudioFileInfo;
class Cart;
class CartWorld;

// What a recorder records into, on the catalogue's side: a blank tape (a new cart proposed in
// a family, at the number after the family's highest, or at its first free number once the
// highest is 9999), or a sound cart of the catalogue. A take is written to a new file in the
// sound folder, so that a cart that is recorded again keeps its old sound whole until the new
// take is committed; Commit then points the cart's sound at the new file, with marks over the
// whole take, saves the cart (which tells its family) and only then deletes the old file.
class RecorderTarget
{
public:
    // A blank tape in the family; none when the family has no free number. Throws KernelError
    // for a family that does not exist.
    static std::optional<RecorderTarget> Blank(std::shared_ptr<CartWorld> world, const QString& familyID);
    // The cart of that ID: a sound cart, or an ID with no cart yet. Throws KernelError for an
    // invalid ID, a cart of another type, or an ID of a family that does not exist.
    static RecorderTarget OfCart(std::shared_ptr<CartWorld> world, const QString& cartID);

    bool IsBlank() const { return m_blank; }
    const QString& CartID() const { return m_cartID; }
    QString FamilyID() const;
    // The cart's title; for a blank tape its proposed ID.
    QString Title() const;
    // The length of the cart's sound; 0 for a blank tape.
    qint32 LengthMs() const;

    // A name for a new take's file in the sound folder that no file has yet.
    QString NewTakePath(const QString& extension) const;
    // Makes the take the cart's sound and saves the cart; a blank tape becomes a new cart at
    // the first free number from the proposal on, should another workstation have taken it.
    // Afterwards the target is that cart. Throws KernelError when the catalogue refuses.
    void Commit(const QString& takePath, const AudioFileInfo& info);

    // The first free number of the family from the rule above; none when it is full.
    static std::optional<int> FreeNumber(CartWorld& world, const QString& familyID);

private:
    RecorderTarget(std::shared_ptr<CartWorld> world, const QString& cartID, bool blank);
    std::shared_ptr<Cart> TargetCart();
    static void RequireFamily(CartWorld& world, const QString& familyID);

    std::shared_ptr<CartWorld> m_world;
    QString m_cartID;
    bool m_blank = false;
};
