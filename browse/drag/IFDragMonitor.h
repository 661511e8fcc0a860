#pragma once
#include "browse/drag/CDrag.h"
#include <QFrame>
#include <QPointer>
#include <QString>

class QLabel;

// A diagnostic panel: the whole state of the drag, one value per line, refreshed whenever the
// drag changes, rolls over a control or starts.
class IFDragMonitor : public QFrame
{
    Q_OBJECT
public:
    explicit IFDragMonitor(QWidget* parent = nullptr);

    // Listens to this drag (the interface's, given by the factory) in place of any other.
    void Attach(CDrag* drag);
    CDrag* Drag() const { return m_drag; }
    void Refresh();
    // The lines shown.
    QString Text() const;
    // The state of a drag in the panel's lines.
    static QString Describe(const CDrag& drag);

    QLabel* LblState;

private:
    QPointer<CDrag> m_drag;
};
