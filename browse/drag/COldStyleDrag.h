#pragma once
#include <QString>
#include <QStringList>

class QWidget;

// The host's side of the old-style drag, for screens whose controls ask for it: a control
// raises OldStyleTryToDrag with a cart ID (or several), the screen starts a toolkit drag of
// that ID from the control, and when the drop lands on one of its controls the screen hands
// the ID to that control's Drop. The ID travels as text, so a drop on a place that takes
// desktop text (a deck's status and title lines) plays it as well.
class COldStyleDrag
{
public:
    // Stores the ID and the collection and runs the toolkit drag from the control; the drop
    // that ends it reads the fields, which are cleared when the drag is over. Without a control
    // only the fields are set.
    void StartDrag(QWidget* control, const QString& cartID, const QStringList& collection = {});
    void StopDrag();

    bool Dragging() const { return m_dragging; }
    bool ManyCarts() const { return m_manyCarts; }
    QString CartID() const { return m_cartID; }
    QStringList Collection() const { return m_collection; }

private:
    QString m_cartID;
    QStringList m_collection;
    bool m_dragging = false;
    bool m_manyCarts = false;
};
