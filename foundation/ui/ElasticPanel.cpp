#include "foundation/ui/ElasticPanel.h"

ElasticPanel::ElasticPanel(QWidget* parent)
    : QWidget(parent)
{
}

ElasticPanel::~ElasticPanel()
{
    // The children outlive this object's members while QWidget deletes them.
    for (QWidget* child : m_places.keys())
        disconnect(child, &QObject::destroyed, this, nullptr);
}

void ElasticPanel::SetDesignSize(const QSizeF& units)
{
    m_designSize = units;
    Relayout();
}

void ElasticPanel::Place(QWidget* child, const QRectF& units)
{
    if (child->parentWidget() != this)
        child->setParent(this);
    if (!m_places.contains(child))
        connect(child, &QObject::destroyed, this, [this, child] { m_places.remove(child); });
    m_places.insert(child, units);
    Relayout();
}

QRectF ElasticPanel::Placement(QWidget* child) const
{
    return m_places.value(child);
}

void ElasticPanel::resizeEvent(QResizeEvent*)
{
    Relayout();
}

QRectF ElasticPanel::UnitSpace() const
{
    if (!m_designSize.isEmpty())
        return QRectF(QPointF(0, 0), m_designSize);
    QRectF bounds;
    for (const QRectF& place : m_places)
        bounds = bounds.isNull() ? place : bounds.united(place);
    return bounds;
}

void ElasticPanel::Relayout()
{
    const QRectF space = UnitSpace();
    if (space.width() <= 0 || space.height() <= 0)
        return;
    const double sx = width() / space.width();
    const double sy = height() / space.height();
    for (auto it = m_places.cbegin(); it != m_places.cend(); ++it) {
        const QRectF& u = it.value();
        it.key()->setGeometry(QRectF((u.left() - space.left()) * sx, (u.top() - space.top()) * sy,
                                     u.width() * sx, u.height() * sy).toRect());
    }
}
