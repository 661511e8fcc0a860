#pragma once
#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>

// A read-only line of text like the lit window of a hardware player or recorder: a recessed
// window in its back colour with the text in its fore colour. A text too wide is set smaller,
// down to two thirds, and beyond that cut with an ellipsis, so that its start always shows. An
// inactive display dims its text but still takes clicks and drops, so that a file can be
// dropped onto an idle player.
class DisplayLabel : public QWidget
{
    Q_OBJECT
public:
    explicit DisplayLabel(QWidget* parent = nullptr);

    QString Text() const { return m_text; }
    void SetText(const QString& text);
    QColor BackColor() const { return m_backColor; }
    void SetBackColor(const QColor& colour);
    QColor ForeColor() const { return m_foreColor; }
    void SetForeColor(const QColor& colour);
    void SetColors(const QColor& back, const QColor& fore);
    void SetAlignment(Qt::Alignment alignment);
    // The type of the text; kept apart from the widget's font, which style sheets set.
    QFont TextFont() const { return m_font; }
    void SetTextFont(const QFont& font);
    // A share above nought sizes the type to that share of the window's height (7 pixels at
    // the least), so that it follows the window as it is resized.
    void SetTypeHeight(double share);
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
    double m_typeHeight = 0;
    bool m_active = true;
};
