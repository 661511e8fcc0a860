#pragma once
#include <QObject>
#include <memory>

class CdRom;

// The disc drives of the workstation, in order; disc images configured as drives count too.
class iCdRoms : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iCdRoms() override = default;

    virtual int Count() const = 0;
    // The drive at a place, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<CdRom> Item(int index) const = 0;
};
