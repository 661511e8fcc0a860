#pragma once
#include <QColor>
#include <QRect>
#include <QWidget>

class QLabel;
class QMouseEvent;

// The bevelled panel that frames other controls: a caption along the top, a double bevel one
// pixel inside the edge, and the guide rectangle `Rectangle` inside the margins. Whenever the
// panel is laid out anew (resize, show, ActiveOnce) its first contained control is moved onto
// `Rectangle`, so a screen only has to size the panel.
class VolmarPannel : public QWidget
{
    Q_OBJECT
public:
    // The caption starts as the control's name.
    explicit VolmarPannel(QWidget* parent = nullptr, const QString& name = QStringLiteral("VolmarPannel1"));

    QString Caption() const;
    void SetCaption(const QString& caption);
    bool VisibleGuide() const { return m_visibleGuide; }
    void SetVisibleGuide(bool visible);
    // Margin at the sides and the bottom.
    qint16 Border() const { return m_border; }
    void SetBorder(qint16 border);
    // Margin at the top, kept for the caption.
    qint16 BorderCaption() const { return m_borderCaption; }
    void SetBorderCaption(qint16 border);
    // Added to Border at left and right.
    qint16 BorderAssymetry() const { return m_borderAssymetry; }
    void SetBorderAssymetry(qint16 border);
    // Always false; writing any value lays the panel and its contents out again.
    bool ActiveOnce() const { return false; }
    void SetActiveOnce(bool);
    QColor BackColor() const { return m_backColor; }
    void SetBackColor(const QColor& colour);
    QColor ForeColor() const { return m_foreColor; }
    void SetForeColor(const QColor& colour);
    // 0 keeps the colours; 1 dark gray with white text; 2 light gray with white text;
    // 3 button face with black text.
    qint32 PresetColor() const { return m_presetColor; }
    void SetPresetColor(qint32 preset);

    // Where the contents go, in the panel's pixels.
    QRect Rectangle() const { return m_rectangle; }

    QLabel* lblLabel;

Q_SIGNALS:
    // Raised for presses on the panel and, with the same arguments, on its caption label.
    void MouseDown(int button, int shift, float x, float y);
    void MouseMove(int button, int shift, float x, float y);
    void MouseUp(int button, int shift, float x, float y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Arrange();
    void AlignControl();
    QObjectList ContainedControls() const;
    void RaiseMouse(const QMouseEvent* event);
    void ApplyForeColor();

    bool m_visibleGuide = true;
    qint16 m_border = 6;
    qint16 m_borderCaption = 16;
    qint16 m_borderAssymetry = 0;
    QColor m_backColor;
    QColor m_foreColor = Qt::black;
    qint32 m_presetColor = 0;
    QRect m_rectangle;
};
