#pragma once
#include <QHash>
#include <QPointer>
#include <QRectF>
#include <QWidget>

// A proportional container: each child is placed in relative units, and the panel maps the
// units onto its own size whenever it is resized, so the layout keeps its proportions on any
// screen. The unit space is the design size when one is set, else the bounding box of the
// children's rectangles.
class ElasticPanel : public QWidget
{
    Q_OBJECT
public:
    explicit ElasticPanel(QWidget* parent = nullptr);
    ~ElasticPanel() override;

    void SetDesignSize(const QSizeF& units);
    // Adds or moves a child (made a child of this panel) to a rectangle in units.
    void Place(QWidget* child, const QRectF& units);
    QRectF Placement(QWidget* child) const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QRectF UnitSpace() const;
    void Relayout();

    QSizeF m_designSize;
    QHash<QWidget*, QRectF> m_places;
};
