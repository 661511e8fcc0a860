#pragma once
#include <QDateTime>
#include <QObject>
#include <QString>
#include <memory>

class iFamily;
class iObjectWithProperties;
class iSound;

// What a cart is. A cart that is not in the catalogue reads as Unknown.
enum class CartType : qint32 {
    Unknown = -1,
    Sound = 0,
    Macro = 1,
    Control = 2,  // an action, for example a remote command
    Reserved = 3,
    Separator = 4, // a spacer row in a family; it holds only a description
};

// One cart: a sound, macro, control or separator with a seven-character ID (family ID and
// four digits). Setters change the object only; Save writes it. A failed call throws
// KernelError.
class iCart : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iCart() override = default;

    virtual CartType Type() const = 0;
    virtual void SetType(CartType type) = 0;
    // First day of validity; a cart without dates of its own reads 01/01/2001 00:00.
    virtual QDateTime StartDate() const = 0;
    virtual void SetStartDate(const QDateTime& date) = 0;
    // Last day of validity; a cart without dates of its own reads 01/01/2099 00:00.
    virtual QDateTime EndDate() const = 0;
    virtual void SetEndDate(const QDateTime& date) = 0;
    // The stored description, the cart's title in every list.
    virtual QString Description() const = 0;
    virtual void SetDescription(const QString& description) = 0;
    virtual QString Comment() const = 0;
    virtual void SetComment(const QString& comment) = 0;
    // Length of the cart in ms.
    virtual qint32 Time() const = 0;
    // The ready-made line that lists show for this cart.
    virtual QString Title() const = 0;
    // The family that holds the cart (the first three characters of its ID); null if none.
    virtual std::shared_ptr<iFamily> Family() const = 0;
    // Length in ms between the sound's start and stop marks.
    virtual qint32 UsefulTime() const = 0;
    // The type as a readable word.
    virtual QString TypeName() const = 0;
    // Named properties of the cart; a macro's entries keep "Index" here.
    virtual std::shared_ptr<iObjectWithProperties> Properties() const = 0;
    // Writes the cart to the catalogue.
    virtual void Save() = 0;
    // Rebuilds the cart's stored data from its sound file and rows.
    virtual void Arrange() = 0;
    // Measures the sound again; accurate false is the quick measure. True on success.
    virtual bool Recalculate(bool accurate) = 0;
    // The cart's sound; null unless the cart is a sound cart.
    virtual std::shared_ptr<iSound> Sound() const = 0;
    // Removes the sound from a sound cart but keeps the cart; true on success.
    virtual bool Empty() = 0;
    // A private copy whose sound marks may be changed freely, to play windows of a sound.
    virtual std::shared_ptr<iCart> TemporaryCopy() = 0;
    // The cart ID; empty for a new cart that has none yet.
    virtual QString ID() const = 0;
    virtual void SetID(const QString& id) = 0;
    // Writes the sound into a directory, replacing a file of the same name when overwrite is
    // set; false when refused.
    virtual bool Export(const QString& directory, bool overwrite) = 0;
    // Prints the cart sheet: its header data, its contents (a macro's entries), or both.
    virtual void Print(bool header, bool contents) = 0;

Q_SIGNALS:
    // A stored property of the cart changed.
    void ChangedProperties();
};
