#pragma once
#include <QColor>
#include <QWidget>

// A square signal lamp of one colour, painted only when its colour changes.
class MeterLamp : public QWidget
{
    Q_OBJECT
public:
    explicit MeterLamp(const QColor& colour, QWidget* parent = nullptr);

    QColor Color() const { return m_colour; }
    void SetColor(const QColor& colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_colour;
};
