// The Live screen's controls and their places. The screen fills the working resolution; the
// columns share its width in fixed proportions and the decks of each channel share their
// column's height, so the screen stays whole from 1280x720 to 1920x1080.
#include "onair/Directe.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "browse/IFDataViewer.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartRecorder.h"
#include "foundation/controls/VolmarPannel.h"
#include "onair/IFCartPlayer.h"
#include "onair/IFFastCarts.h"
#include "onair/IFPlayList.h"
#include "onair/IFPlayLists.h"
#include "onair/IFShortCuts.h"
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
template <class T> T* Named(T* widget, const QString& name)
{
    widget->setObjectName(name);
    return widget;
}

QVBoxLayout* Column(QWidget* widget, int spacing = 6)
{
    auto* layout = new QVBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}
}

QToolButton* Directe::MakeButton(const QString& name, const QString& caption)
{
    auto* button = Named(new QToolButton(this), name);
    button->setText(caption);
    button->setMinimumSize(72, 40);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    return button;
}

QWidget* Directe::BuildHeader()
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    StatusPannel = Named(new QFrame(header), QStringLiteral("StatusPannel"));
    StatusPannel->setFrameShape(QFrame::StyledPanel);
    StatusPannel->setMinimumWidth(210);
    Column(StatusPannel, 0)->setContentsMargins(2, 2, 2, 2);
    PannelEstat = Named(new QFrame(header), QStringLiteral("PannelEstat"));
    PannelEstat->setFrameShape(QFrame::StyledPanel);
    Estat = Named(new QLabel(QStringLiteral("VOLMAR KORVANE LIVE"), PannelEstat), QStringLiteral("Estat"));
    Estat->setAlignment(Qt::AlignCenter);
    Estat->setAutoFillBackground(true);
    Estat->setWordWrap(true);
    Estat->setStyleSheet(QStringLiteral("font-size: 13pt; font-weight: bold;"));
    QPalette colours = Estat->palette();
    colours.setColor(QPalette::Window, QColor(16, 24, 40));
    colours.setColor(QPalette::WindowText, QColor(240, 176, 48));
    Estat->setPalette(colours);
    Column(PannelEstat, 0)->addWidget(Estat);
    CmdContinuity = MakeButton(QStringLiteral("CmdContinuity"), QStringLiteral("Cont"));
    CmdTest = MakeButton(QStringLiteral("CmdTest"), QStringLiteral("Test"));
    CmdSearch = MakeButton(QStringLiteral("CmdSearch"), QStringLiteral("Search"));
    asxToolButton1 = MakeButton(QStringLiteral("asxToolButton1"), QStringLiteral("Menu"));
    PicExit = Named(new QLabel(header), QStringLiteral("PicExit"));
    CmdExit = MakeButton(QStringLiteral("CmdExit"), QStringLiteral("Exit"));
    row->addWidget(StatusPannel);
    row->addWidget(PannelEstat, 1);
    for (QWidget* button : {static_cast<QWidget*>(CmdContinuity), static_cast<QWidget*>(CmdTest),
                            static_cast<QWidget*>(CmdSearch), static_cast<QWidget*>(asxToolButton1),
                            static_cast<QWidget*>(PicExit), static_cast<QWidget*>(CmdExit)})
        row->addWidget(button);
    header->setFixedHeight(72);
    return header;
}

QWidget* Directe::BuildBrowsers()
{
    auto* column = new QWidget(this);
    QVBoxLayout* layout = Column(column);
    IFBrowserFamily1 = Named(new IFBrowserFamily(column), QStringLiteral("IFBrowserFamily1"));
    IFBrowserCart1 = Named(new IFBrowserCart(column), QStringLiteral("IFBrowserCart1"));
    IFDataViewer1 = Named(new IFDataViewer(column), QStringLiteral("IFDataViewer1"));
    m_kernelHolder = new QWidget(column);
    Column(m_kernelHolder, 0);
    layout->addWidget(IFBrowserFamily1, 2);
    layout->addWidget(IFBrowserCart1, 5);
    layout->addWidget(IFDataViewer1, 2);
    layout->addWidget(m_kernelHolder, 0);
    // The cart list keeps room for its ID, time and a readable description.
    column->setMinimumWidth(320);
    return column;
}

QWidget* Directe::BuildLists()
{
    ListTabs = Named(new QTabWidget(this), QStringLiteral("ListTabs"));
    EsperaPannel = Named(new QWidget(ListTabs), QStringLiteral("EsperaPannel"));
    List = Named(new QWidget(EsperaPannel), QStringLiteral("List"));
    QVBoxLayout* lists = Column(List);
    for (size_t k = 0; k < IFPlayList.size(); ++k) {
        IFPlayList[k] = Named(new ::IFPlayList(List), QStringLiteral("IFPlayList_%1").arg(k));
        lists->addWidget(IFPlayList[k], 1);
    }
    Column(EsperaPannel)->addWidget(List);
    IFPlayLists1 = Named(new IFPlayLists(ListTabs), QStringLiteral("IFPlayLists1"));
    IFFastCarts1 = Named(new IFFastCarts(ListTabs), QStringLiteral("IFFastCarts1"));
    IFShortCuts1 = Named(new IFShortCuts(ListTabs), QStringLiteral("IFShortCuts1"));
    ListTabs->addTab(EsperaPannel, QStringLiteral("Waiting lists"));
    ListTabs->addTab(IFFastCarts1, QStringLiteral("Pads"));
    ListTabs->addTab(IFPlayLists1, QStringLiteral("Playlists"));
    ListTabs->addTab(IFShortCuts1, QStringLiteral("Shortcuts"));
    // The lists give way to the browsers on a narrow screen: their status lines elide first.
    ListTabs->setMinimumWidth(480);
    return ListTabs;
}

QFrame* Directe::BuildChannel(int index, const QString& caption, std::array<IFCartPlayer*, DecksPerChannel>& decks)
{
    auto* frame = Named(new QFrame(this), QStringLiteral("Cartutxeres_%1").arg(index));
    QVBoxLayout* layout = Column(frame, 4);
    auto* label = Named(new QLabel(caption, frame), QStringLiteral("CartLabel_%1").arg(index));
    label->setStyleSheet(QStringLiteral("font-size: 14pt; font-weight: bold; color: #f0b030;"));
    CartLabel[static_cast<size_t>(index)] = label;
    layout->addWidget(label);
    const QString prefix = index == 0 ? QStringLiteral("IFCartPlayer1_%1") : QStringLiteral("IFCartPlayer2_%1");
    for (size_t k = 0; k < decks.size(); ++k) {
        decks[k] = Named(new IFCartPlayer(frame), prefix.arg(k));
        layout->addWidget(decks[k], 1);
    }
    layout->addStretch(0);
    return frame;
}

QWidget* Directe::BuildRecorderRow()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    CartRecorderPannel = new VolmarPannel(row, QStringLiteral("CartRecorderPannel"));
    CartRecorderPannel->SetCaption(QStringLiteral("Cart Recorder"));
    auto* tape = new QWidget(CartRecorderPannel);
    auto* tapeRow = new QHBoxLayout(tape);
    tapeRow->setContentsMargins(0, 0, 0, 0);
    IFCartRecorder1 = Named(new IFCartRecorder(tape), QStringLiteral("IFCartRecorder1"));
    IFCartEraser1 = Named(new IFCartEraser(tape), QStringLiteral("IFCartEraser1"));
    tapeRow->addWidget(IFCartRecorder1, 1);
    tapeRow->addWidget(IFCartEraser1, 1);
    m_levelHolder = new QWidget(row);
    Column(m_levelHolder, 0);
    layout->addWidget(CartRecorderPannel, 3);
    layout->addWidget(m_levelHolder, 2);
    return row;
}

QWidget* Directe::BuildDecks()
{
    auto* column = new QWidget(this);
    QVBoxLayout* layout = Column(column);
    auto* channels = new QHBoxLayout;
    channels->setSpacing(8);
    Cartutxeres[0] = BuildChannel(0, QStringLiteral("A Channel"), IFCartPlayer1);
    Cartutxeres[1] = BuildChannel(1, QStringLiteral("B Channel"), IFCartPlayer2);
    channels->addWidget(Cartutxeres[0], 1);
    channels->addWidget(Cartutxeres[1], 1);
    layout->addLayout(channels, 5);
    layout->addWidget(BuildRecorderRow(), 2);
    return column;
}

void Directe::PlaceAdded(QWidget* control, QWidget* holder)
{
    holder->layout()->addWidget(control);
    control->raise();
    control->setVisible(true);
}
