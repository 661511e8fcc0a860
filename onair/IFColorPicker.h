#pragma once
#include <QWidget>

class QLabel;
class QScrollBar;

// A small red, green and blue chooser: three scroll bars from 0 to 255, a swatch, and a label
// with the colour as "#RRGGBB". Every move of a bar raises Changed. While not enabled the bars
// are off and the label reads "#000000". Colours are values with red in the low byte.
class IFColorPicker : public QWidget
{
    Q_OBJECT
public:
    explicit IFColorPicker(QWidget* parent = nullptr);
    ~IFColorPicker() override;

    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool enabled);
    qint32 Color() const;
    // Sets the bars without raising Changed.
    void SetColor(qint32 color);
    QString Caption() const;

    QScrollBar* ScrRed;
    QScrollBar* ScrGreen;
    QScrollBar* ScrBlue;

Q_SIGNALS:
    void Changed();

private:
    QScrollBar* MakeBar(const QString& name, const QString& letter, int row);
    void Scr_Change();
    void ShowColor();

    QLabel* LblColor;
    QWidget* Swatch;
    bool m_enabled = true;
    bool m_setting = false;
};
