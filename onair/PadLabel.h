#pragma once
#include <QColor>
#include <QString>
#include <QWidget>

// A text on a pad: drawn in the pad's colour on a transparent ground, bold, sized by the
// owner, cut with an ellipsis when it does not fit, or wrapped over the lines that fit.
class PadLabel : public QWidget
{
    Q_OBJECT
public:
    explicit PadLabel(const QString& name, QWidget* parent);

    QString Text() const { return m_text; }
    void SetText(const QString& text);
    QColor ForeColor() const { return m_color; }
    void SetForeColor(const QColor& colour);
    void SetAlignment(Qt::Alignment alignment);
    void SetWrap(bool wrap);
    void SetPixelSize(int size);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    QColor m_color = Qt::white;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool m_wrap = false;
    int m_pixelSize = 12;
};
