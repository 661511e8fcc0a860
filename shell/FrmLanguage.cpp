#include "shell/FrmLanguage.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/controls/LampPicture.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "shell/FormPlacement.h"
#include "shell/InitForm.h"
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

namespace {
const QString Object = QStringLiteral("FrmLanguage");
const char* const LanguageKey = "Translator.Language";
constexpr int LampSide = 26;

// Index order of the buttons and lamps, with each language's name in that language.
struct Language
{
    const char* code;
    const char* name;
};
constexpr Language TheLanguages[FrmLanguage::Languages] = {
    {"CAT", "Català"}, {"ESP", "Español"}, {"EUS", "Euskara"},
    {"FRE", "Français"}, {"ENG", "English"}, {"GAL", "Galego"},
};

QPixmap Lamp(const QColor& colour)
{
    return LampPicture::Draw(LampSide, colour, [](QPainter&, const QRectF&) {});
}
}

FrmLanguage::FrmLanguage()
    : Form(QStringLiteral("FrmLanguage"))
{
    setWindowTitle(QStringLiteral("Language"));
    m_lit = Lamp(QColor(80, 230, 90));
    LedU = Lamp(QColor(40, 62, 44));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(40, 24, 40, 24);
    grid->setHorizontalSpacing(14);
    auto* title = new QLabel(QStringLiteral("Language"), this);
    title->setProperty("role", QStringLiteral("title"));
    grid->addWidget(title, 0, 0, 1, 3);
    for (int i = 0; i < Languages; ++i)
        AddLanguage(grid, i, QString::fromUtf8(TheLanguages[i].name));
    grid->setRowStretch(Languages + 1, 1);
    CmdEditLanguages = new QPushButton(QStringLiteral("Edit languages"), this);
    CmdEditLanguages->setObjectName(QStringLiteral("CmdEditLanguages"));
    // The editor of the translation tables is not part of the workstation yet.
    CmdEditLanguages->setEnabled(false);
    Sortir = new QPushButton(QStringLiteral("Exit"), this);
    Sortir->setObjectName(QStringLiteral("Sortir"));
    CmdEditLanguages->setMinimumWidth(180);
    Sortir->setMinimumWidth(100);
    auto* footer = new QHBoxLayout;
    footer->addWidget(CmdEditLanguages);
    footer->addStretch(1);
    footer->addWidget(Sortir);
    grid->addLayout(footer, Languages + 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    connect(Sortir, &QPushButton::clicked, this, &FrmLanguage::Sortir_Click);
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(BlinkMs);
    connect(Timer1, &QTimer::timeout, this, &FrmLanguage::Timer1_Timer);
    resize(520, 420);
    ShowLamps();
}

void FrmLanguage::AddLanguage(QGridLayout* grid, int index, const QString& name)
{
    auto* lamp = new QLabel(this);
    lamp->setObjectName(QStringLiteral("LedD%1").arg(index));
    lamp->setFixedSize(LampSide, LampSide);
    lamp->setCursor(Qt::PointingHandCursor);
    lamp->installEventFilter(this);
    auto* button = new QPushButton(name, this);
    button->setObjectName(QStringLiteral("Idiom1%1").arg(index));
    // A language is named in its own words, whatever the language in use.
    KeepUntranslated(button);
    button->setMinimumWidth(200);
    connect(button, &QPushButton::clicked, this, [this, index] { SetIndex(index); });
    grid->addWidget(lamp, index + 1, 0);
    grid->addWidget(button, index + 1, 1, 1, 2);
    m_lamps << lamp;
    m_buttons << button;
}

QString FrmLanguage::CodeOf(int index)
{
    return index >= 0 && index < Languages ? QString::fromLatin1(TheLanguages[index].code) : QString();
}

int FrmLanguage::IndexOf(const QString& code)
{
    for (int i = 0; i < Languages; ++i)
        if (code == QLatin1String(TheLanguages[i].code))
            return i;
    return -1;
}

bool FrmLanguage::LampLit(int index) const
{
    return index == Index() && m_bright;
}

void FrmLanguage::Form_Load()
{
    Guarded(Object, QStringLiteral("Form_Load"), [this](Step& step) {
        step(QStringLiteral("FitForm"));
        if (InitForm::Exists())
            FormPlacement::FitForm(*this, *InitForm::Instance());
        step(QStringLiteral("Translation"));
        TranslateWithKernel(this);
        step(QStringLiteral("Language"));
        m_code = Globals::Kernel()->Config(QLatin1String(LanguageKey)).toString();
        m_read = true;
        m_bright = true;
        ShowLamps();
        Timer1->start();
    });
}

void FrmLanguage::SetIndex(int index)
{
    if (CodeOf(index).isEmpty())
        return;
    m_code = CodeOf(index);
    m_bright = true;
    ShowLamps();
}

void FrmLanguage::Timer1_Timer()
{
    m_bright = !m_bright;
    ShowLamps();
}

void FrmLanguage::ShowLamps()
{
    for (int i = 0; i < m_lamps.size(); ++i)
        m_lamps[i]->setPixmap(LampLit(i) ? m_lit : LedU);
}

bool FrmLanguage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        const int index = m_lamps.indexOf(qobject_cast<QLabel*>(watched));
        if (index >= 0)
            SetIndex(index);
    }
    return Form::eventFilter(watched, event);
}

void FrmLanguage::Sortir_Click()
{
    Guarded(Object, QStringLiteral("Sortir_Click"), [this] {
        Timer1->stop();
        if (m_read)
            Globals::Kernel()->SetConfig(QLatin1String(LanguageKey), m_code);
        // The menu stays up the whole run: it changes language here, the screens at their load.
        if (InitForm::Exists())
            InitForm::Instance()->TranslateAgain();
        Unload();
    });
}

void FrmLanguage::Form_Unload()
{
    Timer1->stop();
    ReturnToMenu();
}
