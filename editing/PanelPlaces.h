#pragma once
#include <QHash>
#include <QRectF>
#include <QSize>
#include <QSizeF>

class QWidget;

// The places of a panel's controls, in twips of a panel of the design size: each place scales
// with the panel's present size, so the panel keeps its look at any size.
class PanelPlaces
{
public:
    explicit PanelPlaces(const QSizeF& design) : m_design(design) {}

    // Gives a control its place and puts it there at once for the panel's present size.
    void Place(QWidget* widget, double left, double top, double width, double height);
    // Puts every control in its place for a new size of the panel.
    void Apply(const QSize& panel) const;
    QSizeF Design() const { return m_design; }

private:
    void Apply(QWidget* widget, const QRectF& design, const QSize& panel) const;

    QSizeF m_design;
    QHash<QWidget*, QRectF> m_places;
};
