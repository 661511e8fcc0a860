#pragma once
#include "kernel/CartRecord.h"
#include "kernelapi/iCart.h"
#include <memory>

class CartWorld;
class PropertyBag;
class Sound;

// One cart over its rows of Cart and, for a sound cart, Sound. Setters change the object;
// Save writes it in one transaction. A cart with no dates of its own reads as valid from
// 01/01/2001 00:00 to 01/01/2099 00:00, and those two dates are stored as no date. Time is
// what plays on air (stop mark minus start mark of the sound; the sum of the steps of a
// macro); UsefulTime is the stretch between the auxiliary marks of a sound when they are
// set, else Time.
class Cart : public iCart
{
    Q_OBJECT
public:
    static const QDateTime AlwaysFrom;
    static const QDateTime AlwaysUntil;

    Cart(std::shared_ptr<CartWorld> world, const CartRecord& record, bool temporary = false);
    ~Cart() override;

    CartType Type() const override { return m_record.type; }
    void SetType(CartType type) override { m_record.type = type; }
    QDateTime StartDate() const override;
    void SetStartDate(const QDateTime& date) override;
    QDateTime EndDate() const override;
    void SetEndDate(const QDateTime& date) override;
    QString Description() const override { return m_record.description; }
    void SetDescription(const QString& description) override { m_record.description = description; }
    QString Comment() const override { return m_record.comment; }
    void SetComment(const QString& comment) override { m_record.comment = comment; }
    qint32 Time() const override { return m_record.time; }
    QString Title() const override;
    std::shared_ptr<iFamily> Family() const override;
    qint32 UsefulTime() const override;
    QString TypeName() const override;
    std::shared_ptr<iObjectWithProperties> Properties() const override;
    void Save() override;
    void Arrange() override;
    bool Recalculate(bool accurate) override;
    std::shared_ptr<iSound> Sound() const override;
    bool Empty() override;
    std::shared_ptr<iCart> TemporaryCopy() override;
    QString ID() const override { return m_record.id; }
    void SetID(const QString& id) override;
    bool Export(const QString& directory, bool overwrite) override;
    void Print(bool header, bool contents) override;

    // Reads the cart again from the catalogue, after another object wrote or deleted it, and
    // raises ChangedProperties.
    void Reload();
    // Reads the cart's row again and, when it differs from what the object holds, takes it as
    // Reload does.
    void Recheck();
    // Writes the cart's rows inside the caller's transaction; true when the Cart row is new.
    // Announce must follow the commit.
    bool WriteRows();
    void Announce(bool inserted);
    // The length of a macro, set by the macro before it writes the cart.
    void SetTime(qint32 ms) { m_record.time = ms; }
    // Removes the sound of a sound cart inside the caller's transaction: its Sound row, and
    // with removeFile its audio and energy files unless another sound names the same file.
    // Removes the sound's rows; the file to delete once the change is committed comes back
    // (empty when the file stays: not asked for, or another sound uses it).
    QString RemoveSound(bool removeFile);

private:
    std::shared_ptr<::Sound> SoundObject() const;
    void TakeMarks(const ::Sound& sound);
    void RequireSavable() const;
    bool RecalculateMacro();
    bool RecalculateSound(bool accurate);
    void StoreTime();
    QStringList ReportLines(bool header, bool contents) const;

    std::shared_ptr<CartWorld> m_world;
    CartRecord m_record;
    bool m_temporary = false;
    mutable std::shared_ptr<::Sound> m_sound; // made on first use
    mutable std::shared_ptr<PropertyBag> m_properties;
};
