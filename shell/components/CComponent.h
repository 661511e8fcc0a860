#pragma once
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <memory>

// What a control shows to the others: a name, the control itself and the object it offers.
// A drag of this component carries SharedObject to the component it is dropped on.
class CComponent : public QObject
{
    Q_OBJECT
public:
    // What SharedObject holds.
    enum ShareTypes : qint32 { ShareNothing = 0, ShareCart = 1, ShareFamily = 2 };

    CComponent() = default;

    QString Name() const { return m_name; }
    void SetName(const QString& name);
    QWidget* Control() const { return m_control; }
    void SetControl(QWidget* control);
    qint32 ShareType() const { return m_shareType; }
    void SetShareType(qint32 shareType);
    // The object offered: a cart (iCart) or a family (iFamily), or null.
    std::shared_ptr<QObject> SharedObject() const { return m_sharedObject; }
    void SetSharedObject(std::shared_ptr<QObject> object);
    // The offered object as the asked interface, or null when it is something else.
    template <class T> std::shared_ptr<T> Shared() const { return std::dynamic_pointer_cast<T>(m_sharedObject); }

    bool MayReceiveDrags() const { return m_mayReceiveDrags; }
    bool MaySendDrags() const { return m_maySendDrags; }

    void RaiseEventDragDrop(const std::shared_ptr<CComponent>& source);

Q_SIGNALS:
    void ChangedProperty();
    void DragDrop(std::shared_ptr<CComponent> source);

private:
    template <class T> void Change(T& field, const T& value);

    QString m_name;
    QPointer<QWidget> m_control;
    qint32 m_shareType = ShareNothing;
    std::shared_ptr<QObject> m_sharedObject;
    bool m_mayReceiveDrags = true;
    bool m_maySendDrags = true;
};
