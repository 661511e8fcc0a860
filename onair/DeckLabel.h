#pragma once
#include <QColor>
#include <QString>
#include <QWidget>

// A read-only text display of the deck, like the lit window of a hardware player: a recessed
// window in its back colour with the text in its fore colour. Disabled, the text dims.
class DeckLabel : public QWidget
{
    Q_OBJECT
public:
    explicit DeckLabel(QWidget* parent = nullptr);

    QString Text() const { return m_text; }
    void SetText(const QString& text);
    QColor BackColor() const { return m_backColor; }
    void SetBackColor(const QColor& colour);
    QColor ForeColor() const { return m_foreColor; }
    void SetForeColor(const QColor& colour);
    void SetAlignment(Qt::Alignment alignment);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    QColor m_backColor{0, 0, 0};
    QColor m_foreColor{255, 255, 255};
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
};
