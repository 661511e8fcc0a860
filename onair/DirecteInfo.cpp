// The information line at the top of the Live screen: a help text for the thing under the
// pointer, free text from other controls, a hovered cart's description, or the first active
// alert on amber. While an alert shows, nothing else replaces it.
#include "onair/Directe.h"
#include "foundation/CartInfo.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Strings.h"
#include "foundation/Tr.h"
#include <QLabel>

namespace {
const QString Object = QStringLiteral("Directe");

struct HelpText
{
    int index;
    const char* title;
    const char* description;
};

constexpr HelpText HelpTexts[] = {
    {0, "CUSTOMIZABLE GRID", "Can be customized"},
    {1, "CARTPLAYERS", "Makes it playback"},
    {2, "INFORMATION BOARD", "Look it often"},
    {4, "LEVELS INDICATORS", "Recording / A Channel / B Channel"},
    {6, "WAITING LISTS", "Can be customized"},
    {8, "EXIT", "Goes to main menu"},
    {13, "LINK LISTS UP", "ON = successive sounds, OFF = separated sounds"},
    {16, "DELETE SOUND", "Drag a sound over the button for delete it."},
};

QString TypeSuffix(const QString& type)
{
    if (type == QLatin1String("S"))
        return QStringLiteral(" / Tipus: So");
    if (type == QLatin1String("M"))
        return QStringLiteral(" / Tipus: Macro");
    return {};
}
}

void Directe::InitAlerts()
{
    m_alertMasks[0] = 1;
    m_alertTexts[0] = Tr(QStringLiteral("INVALID RECORDING FORMAT")) + QLatin1Char('\n')
        + Tr(QStringLiteral("Call the SuperUser for reconfigure the sound parameters."));
}

void Directe::InitHelp()
{
    for (const HelpText& help : HelpTexts)
        m_infoTexts[static_cast<size_t>(help.index)] = Tr(QString::fromLatin1(help.title)) + QLatin1Char('\n')
            + Tr(QString::fromLatin1(help.description));
    // The empty text: a title and a description, both empty.
    m_infoTexts[99] = QStringLiteral("\n");
}

void Directe::InitState()
{
    const QPalette colours = Estat->palette();
    m_infoBack = {colours.color(QPalette::Window), QColor(240, 0, 0), QColor(200, 150, 0)};
    m_infoFore = {colours.color(QPalette::WindowText), QColor(Qt::white), QColor(Qt::white)};
}

void Directe::ShowInfo(const QString& text, int colour)
{
    Estat->setText(text);
    QPalette colours = Estat->palette();
    colours.setColor(QPalette::Window, m_infoBack[static_cast<size_t>(colour)]);
    colours.setColor(QPalette::WindowText, m_infoFore[static_cast<size_t>(colour)]);
    Estat->setPalette(colours);
}

void Directe::SetInfo(int index)
{
    Guarded(Object, QStringLiteral("SetInfo"), [&] {
        if (m_alertShowing || index == m_currentInfo || index < 0 || index >= HelpCount)
            return;
        ShowInfo(m_infoTexts[static_cast<size_t>(index)], NormalColour);
        m_currentInfo = index;
    });
}

void Directe::SetInfoSay(const QString& title, const QString& text)
{
    if (m_alertShowing)
        return;
    ShowInfo(title + QLatin1Char('\n') + text, NormalColour);
    m_currentInfo = -1;
}

void Directe::SetInfoAlert(qint32 mask, bool on)
{
    m_alertFlags = on ? (m_alertFlags | mask) : (m_alertFlags & ~mask);
    m_alertShowing = on;
    if (m_alertFlags == 0) {
        ShowInfo(Estat->text(), NormalColour);
        return;
    }
    for (size_t i = 0; i < m_alertMasks.size(); ++i)
        if (m_alertMasks[i] & m_alertFlags) {
            ShowInfo(m_alertTexts[i], AmberColour);
            return;
        }
}

void Directe::SetInfoSound(const QString& cartID)
{
    Guarded(Object, QStringLiteral("SetInfoSound"), [&] {
        if (m_alertShowing)
            return;
        const QString suffix = TypeSuffix(GetCartField(QStringLiteral("Type"), cartID));
        if (GetCartField(QStringLiteral("ID"), cartID).isEmpty()) {
            ShowInfo(QStringLiteral("No hi ha informació disponible de\n") + cartID, NormalColour);
        } else {
            const qint32 time = static_cast<qint32>(Val(GetCartField(QStringLiteral("Time"), cartID)));
            ShowInfo(QStringLiteral("Cart: ") + cartID + suffix + QStringLiteral(" / Duració: ") + MsToHuman(time) + QLatin1Char('\n')
                         + GetCartField(QStringLiteral("Descripcio"), cartID)
                         + Parenthesize(GetCartField(QStringLiteral("Comentari"), cartID)),
                     NormalColour);
        }
        m_currentInfo = -1;
    });
}
