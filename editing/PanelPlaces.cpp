#include "editing/PanelPlaces.h"
#include <QWidget>

void PanelPlaces::Place(QWidget* widget, double left, double top, double width, double height)
{
    const QRectF design(left, top, width, height);
    m_places.insert(widget, design);
    if (widget->parentWidget())
        Apply(widget, design, widget->parentWidget()->size());
}

void PanelPlaces::Apply(const QSize& panel) const
{
    for (auto it = m_places.cbegin(); it != m_places.cend(); ++it)
        Apply(it.key(), it.value(), panel);
}

void PanelPlaces::Apply(QWidget* widget, const QRectF& design, const QSize& panel) const
{
    const double sx = panel.width() / m_design.width();
    const double sy = panel.height() / m_design.height();
    widget->setGeometry(qRound(design.left() * sx), qRound(design.top() * sy), qRound(design.width() * sx),
                        qRound(design.height() * sy));
}
