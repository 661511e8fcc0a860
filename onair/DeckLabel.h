#pragma once
#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>

// A read-only text display of the deck, like the lit window of a hardware player: a recessed
// window in its back colour with the text in its fore colour. An inactive display dims its
// text but still takes clicks and drops, so that a file can be dropped onto an idle deck.
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
    // The type of the text; kept apart from the widget's font, which style sheets set.
    QFont TextFont() const { return m_font; }
    void SetTextFont(const QFont& font);
    bool IsActive() const { return m_active; }
    void SetActive(bool active);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont FittingFont(int room) const;

    QString m_text;
    QColor m_backColor{0, 0, 0};
    QColor m_foreColor{255, 255, 255};
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    QFont m_font;
    bool m_active = true;
};
