#pragma once
#include <QObject>
#include <memory>

class iCart;
class iObjectWithProperties;

// One row of a playlist.
class iPlayListItem : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iPlayListItem() override = default;

    // The row's cart; null for a blank row.
    virtual std::shared_ptr<iCart> Cart() const = 0;
    // Whether the row is sounding now.
    virtual bool Playing() const = 0;
    // Whether the row is skipped when the list plays.
    virtual bool Ignored() const = 0;
    virtual void SetIgnored(bool ignored) = 0;
    // Whether the row has changes not yet saved.
    virtual bool Modified() const = 0;
    virtual void SetModified(bool modified) = 0;
    // Whether the row repeats until skipped.
    virtual bool Looped() const = 0;
    virtual void SetLooped(bool looped) = 0;
    // Properties stored with the row, such as a pad's "SerializedPadColors".
    virtual std::shared_ptr<iObjectWithProperties> Properties() const = 0;
};
