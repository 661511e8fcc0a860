#include "browse/drag/COldStyleDrag.h"
#include <QDrag>
#include <QMimeData>
#include <QWidget>

void COldStyleDrag::StartDrag(QWidget* control, const QString& cartID, const QStringList& collection)
{
    m_cartID = cartID;
    m_collection = collection;
    m_manyCarts = collection.size() > 1;
    m_dragging = true;
    if (!control)
        return;
    auto* data = new QMimeData;
    data->setText(cartID);
    auto* drag = new QDrag(control);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
    StopDrag();
}

void COldStyleDrag::StopDrag()
{
    m_cartID.clear();
    m_collection.clear();
    m_dragging = false;
    m_manyCarts = false;
}
