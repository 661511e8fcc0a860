#include "shell/NoticeWindow.h"
#include "foundation/Tr.h"
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace {
const QColor Face(255, 236, 170);
const QColor Edge(160, 110, 0);
}

NoticeWindow::NoticeWindow() : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("NoticeWindow"));
    setAttribute(Qt::WA_ShowWithoutActivating); // the on-air screen keeps the keys
    LblText = new QLabel(this);
    LblText->setObjectName(QStringLiteral("LblText"));
    LblText->setTextFormat(Qt::PlainText);
    LblText->setWordWrap(true);
    QFont font = LblText->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    LblText->setFont(font);
    LblText->setStyleSheet(QStringLiteral("color: black;"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 10, 14, 10);
    layout->addWidget(LblText);
    m_tmrHide.setSingleShot(true);
    m_tmrHide.setInterval(ShowMs);
    connect(&m_tmrHide, &QTimer::timeout, this, &NoticeWindow::TmrHide_Timer);
}

void NoticeWindow::Add(const QString& from, const QString& text)
{
    if (!isVisible())
        m_notices.clear();
    m_notices << Tr(QStringLiteral("Notice from %1: %2")).arg(from, text);
    while (m_notices.size() > MaxNotices)
        m_notices.removeFirst();
    LblText->setText(m_notices.join(u'\n'));
    Place();
    show();
    raise();
    m_tmrHide.start();
}

QString NoticeWindow::Text() const
{
    return isVisible() ? LblText->text() : QString();
}

void NoticeWindow::TmrHide_Timer()
{
    m_tmrHide.stop();
    hide();
}

void NoticeWindow::mousePressEvent(QMouseEvent*)
{
    TmrHide_Timer();
}

// Centred at the top of the screen, a third of its width.
void NoticeWindow::Place()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1280, 800);
    const int width = std::max(320, area.width() / 3);
    LblText->setFixedWidth(width - 28);
    adjustSize();
    resize(width, height());
    move(area.left() + (area.width() - width) / 2, area.top() + 12);
}

void NoticeWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Face);
    painter.setPen(QPen(Edge, 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}
