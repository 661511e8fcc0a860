#pragma once
#include "shell/Form.h"
#include <QPixmap>
#include <QVector>

class QLabel;
class QPushButton;
class QTimer;

// The language chooser: one button and one lamp per language; the lamp of the chosen language
// blinks. Exit stores the choice as the shared key Translator.Language, so every screen opened
// afterwards comes up in that language.
class FrmLanguage : public Form
{
    Q_OBJECT
public:
    static constexpr int Languages = 6;
    static constexpr int BlinkMs = 500;

    FrmLanguage();

    // The code of a button index (CAT, ESP, EUS, FRE, ENG, GAL); empty outside 0..5.
    static QString CodeOf(int index);
    // The index of a code, exactly as stored; -1 for any other text.
    static int IndexOf(const QString& code);

    QString Code() const { return m_code; }
    int Index() const { return IndexOf(m_code); }
    QPushButton* Idiom1(int index) const { return m_buttons.value(index); }
    QLabel* LedD(int index) const { return m_lamps.value(index); }
    // True while the lamp shows the lit picture.
    bool LampLit(int index) const;
    QPushButton* CmdEditLanguages = nullptr;
    QPushButton* Sortir = nullptr;
    QTimer* Timer1 = nullptr;

    void SetIndex(int index);
    void Timer1_Timer();
    void Sortir_Click();

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddLanguage(class QGridLayout* grid, int index, const QString& name);
    void ShowLamps();

    QVector<QPushButton*> m_buttons;
    QVector<QLabel*> m_lamps;
    QPixmap m_lit;   // the chosen language's lamp at its bright phase
    QPixmap LedU;    // every other lamp, and the chosen one at its dark phase
    QString m_code;  // as read from the store: an unknown code is kept and written back
    bool m_bright = true;
    bool m_read = false; // the store was read: only then is there a choice to write back
};
