#include "onair/UCPlayListStatus.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iStream.h"
#include "onair/PlayListButtonPictures.h"
#include "onair/PlayListPictures.h"
#include "onair/UCChannelStreamSelector.h"
#include <QVBoxLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>

using namespace PlayListStatusTable;

namespace {
constexpr int LampSide = 18;
const char* const LineNames[LineCount] = {"Loaded", "Playing", "Modified", "Chained", "AutoClose"};
}

UCPlayListStatus::UCPlayListStatus(QWidget* parent) : QWidget(parent)
{
    setObjectName(Object);
    CreateControls();
    GrabStatus();
}

UCPlayListStatus::~UCPlayListStatus()
{
    SilenceDescendants(*this);
    for (const auto& connection : std::as_const(m_connections))
        disconnect(connection);
}

void UCPlayListStatus::CreateControls()
{
    setStyleSheet(QStringLiteral("QLabel { color: rgb(200, 210, 225); }"
                                 "QLabel#LblLoadedContents { color: rgb(255, 190, 80); font-weight: bold; }"
                                 "QLabel#LblChained { text-decoration: underline; }"
                                 "QToolButton#CmdPlay { background: rgb(24, 60, 34); border: 1px solid rgb(10, 30, 16); border-radius: 3px; }"));
    auto* lamps = new QHBoxLayout;
    lamps->setSpacing(4);
    for (int line = 0; line < LineCount; ++line) {
        m_images[line] = new QLabel(this);
        m_images[line]->setObjectName(QStringLiteral("Img") + QLatin1String(LineNames[line]));
        m_images[line]->setFixedSize(LampSide, LampSide);
        m_labels[line] = new QLabel(this);
        m_labels[line]->setObjectName(QStringLiteral("Lbl") + QLatin1String(LineNames[line]));
        lamps->addWidget(m_images[line]);
        lamps->addWidget(m_labels[line]);
        lamps->addSpacing(8);
    }
    lamps->addStretch(1);
    m_labels[Chained]->setCursor(Qt::PointingHandCursor);
    m_labels[Chained]->installEventFilter(this);

    LblLoadedContents = new QLabel(this);
    LblLoadedContents->setObjectName(QStringLiteral("LblLoadedContents"));
    LblLoadedContents->setMinimumWidth(70);
    LblLoadedContents->installEventFilter(this);
    PicWaitFor = new QLabel(this);
    PicWaitFor->setObjectName(QStringLiteral("PicWaitFor"));
    PicWaitFor->setPixmap(PlayListPictures::WaitPicture(LampSide));
    LblWaitFor = new QLabel(this);
    LblWaitFor->setObjectName(QStringLiteral("LblWaitFor"));
    UCChannelStreamSelector1 = new UCChannelStreamSelector(this);
    UCChannelStreamSelector1->setObjectName(QStringLiteral("UCChannelStreamSelector1"));
    CmdPlay = new QToolButton(this);
    CmdPlay->setObjectName(QStringLiteral("CmdPlay"));
    CmdPlay->setFixedSize(40, 26);
    CmdPlay->setIcon(QIcon(PlayListButtonPictures::Picture(QStringLiteral("Play"), 20)));
    CmdPlay->setIconSize(QSize(20, 20));
    connect(CmdPlay, &QToolButton::clicked, this, &UCPlayListStatus::CmdPlay_Click);

    auto* play = new QHBoxLayout;
    play->setSpacing(6);
    play->addWidget(LblLoadedContents);
    play->addWidget(PicWaitFor);
    play->addWidget(LblWaitFor);
    play->addStretch(1);
    play->addWidget(UCChannelStreamSelector1);
    play->addWidget(CmdPlay);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(3);
    column->addLayout(lamps);
    column->addLayout(play);
}

void UCPlayListStatus::Init()
{
    for (int line = 0; line < LineCount; ++line)
        for (const bool on : {true, false}) {
            const Facts every{true, on ? 1 : 0, on ? 1 : 0, on, on, on};
            const QString word = Show(every, Line(line)).word;
            m_words.insert(word, Tr(word));
        }
    UCChannelStreamSelector1->Init();
    GrabStatus();
}

QString UCPlayListStatus::Word(Line line) const
{
    return m_labels[line]->text();
}

QString UCPlayListStatus::LoadedContents() const
{
    return LblLoadedContents->text();
}

bool UCPlayListStatus::WaitShown() const
{
    return !PicWaitFor->isHidden();
}

QString UCPlayListStatus::WaitText() const
{
    return LblWaitFor->text();
}

bool UCPlayListStatus::PlayShown() const
{
    return !CmdPlay->isHidden();
}

void UCPlayListStatus::SetPlayList(const std::shared_ptr<iPlayList>& list)
{
    for (const auto& connection : std::exchange(m_connections, {}))
        disconnect(connection);
    m_list = list;
    // A save or load of a list that was not modified changes its macro without a status event.
    if (m_list)
        m_connections << connect(m_list.get(), &iPlayList::StatusChanged, this, &UCPlayListStatus::iPlayList_StatusChanged)
                      << connect(m_list.get(), &iPlayList::ContentChanged, this, &UCPlayListStatus::iPlayList_StatusChanged);
    GrabStatus();
}

void UCPlayListStatus::iPlayList_StatusChanged()
{
    GrabStatus();
}

Facts UCPlayListStatus::ReadFacts() const
{
    Facts facts;
    if (!m_list)
        return facts;
    facts.hasList = true;
    facts.loadState = m_list->LoadState();
    facts.playState = m_list->PlayState();
    facts.modified = m_list->Modified();
    facts.chained = m_list->Chained();
    facts.autoClose = m_list->AutoClose();
    return facts;
}

void UCPlayListStatus::GrabStatus()
{
    Guarded(Object, QStringLiteral("GrabStatus"), [this] {
        const Facts facts = ReadFacts();
        for (int line = 0; line < LineCount; ++line)
            ShowLine(Line(line), Show(facts, Line(line)));
        QString contents;
        if (facts.loadState == 1)
            if (const auto macro = m_list->LoadedMacro())
                contents = macro->Cart()->ID();
        LblLoadedContents->setText(contents);
        const bool waiting = m_list && m_list->Waiting();
        LblWaitFor->setText(waiting ? QLocale().toString(m_list->WaitForStart(), QLocale::ShortFormat) : QString());
        PicWaitFor->setVisible(waiting);
        LblWaitFor->setVisible(waiting);
        CmdPlay->setVisible(m_list != nullptr);
        UCChannelStreamSelector1->setVisible(m_list != nullptr);
    });
}

void UCPlayListStatus::ShowLine(Line line, const Shown& shown)
{
    m_icons.insert(line, shown.icon);
    m_images[line]->setPixmap(PlayListPictures::StatusPicture(shown.icon, LampSide));
    m_labels[line]->setText(m_words.value(shown.word, shown.word));
}

void UCPlayListStatus::CmdPlay_Click()
{
    Guarded(Object, QStringLiteral("CmdPlay_Click"), [this] {
        if (!m_list)
            return;
        const auto stream = UCChannelStreamSelector1->Stream();
        if (!stream) {
            LogWarn(Object, QStringLiteral("CmdPlay_Click"), QStringLiteral("No stream is chosen to play playlist ") + m_list->ID());
            return;
        }
        m_list->SetPlayer(stream->CartPlayer());
        m_list->Play();
    });
}

void UCPlayListStatus::LblChained_Click()
{
    Guarded(Object, QStringLiteral("LblChained_Click"), [this] {
        if (m_list)
            m_list->SetChained(!m_list->Chained());
    });
}

void UCPlayListStatus::LblLoadedContents_RightPress(const QPoint& globalPos)
{
    Guarded(Object, QStringLiteral("LblLoadedContents_MouseDown"), [&] {
        const auto line = [](const QString& text, const QString& key, bool enabled) {
            Dialogs::PopupLine popup;
            popup.text = text;
            popup.key = key;
            popup.enabled = enabled;
            return popup;
        };
        const QVector<Dialogs::PopupLine> lines{
            line(QStringLiteral("-") + Tr(QStringLiteral("Playlist")), {}, true),
            line(Tr(QStringLiteral("Shuffle")), ShuffleKey, m_list != nullptr),
            line(QStringLiteral("-") + Tr(QStringLiteral("Cancel")), {}, true),
            line(Tr(QStringLiteral("Cancel")), QStringLiteral("UCPlayListStatus.Cancel"), true),
        };
        if (Dialogs::PopupMenu(lines, globalPos) == ShuffleKey && m_list)
            m_list->Shuffle();
    });
}

bool UCPlayListStatus::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (watched == m_labels[Chained] && mouse->button() == Qt::LeftButton) {
            LblChained_Click();
            return true;
        }
        if (watched == LblLoadedContents && mouse->button() == Qt::RightButton) {
            LblLoadedContents_RightPress(mouse->globalPosition().toPoint());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
