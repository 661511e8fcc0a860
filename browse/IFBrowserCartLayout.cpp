// The controls of the cart browser, their places and their connections.
#include "browse/IFBrowserCart.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "foundation/Tr.h"
#include "foundation/controls/UCProgressBar.h"
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
QToolButton* ToolButton(const QString& name, const QString& caption, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(Tr(caption));
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QLabel* Label(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    return label;
}
}

void IFBrowserCart::BuildControls()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);

    auto* header = new QHBoxLayout;
    LblTitle = Label(QStringLiteral("LblTitle"), this);
    LblQty = Label(QStringLiteral("LblQty"), this);
    header->addWidget(LblTitle, 1);
    header->addWidget(LblQty);
    layout->addLayout(header);

    auto* search = new QHBoxLayout;
    TxtSearch = new QLineEdit(this);
    TxtSearch->setObjectName(QStringLiteral("TxtSearch"));
    TxtSearch->setPlaceholderText(Tr(QStringLiteral("ID, time or description")));
    CmdSearch = ToolButton(QStringLiteral("CmdSearch"), QStringLiteral("Search"), this);
    CmdSelected = ToolButton(QStringLiteral("CmdSelected"), QStringLiteral("Selected"), this);
    CmdSelected->setCheckable(true);
    search->addWidget(TxtSearch, 1);
    search->addWidget(CmdSearch);
    search->addWidget(CmdSelected);
    layout->addLayout(search);

    ListView1 = new BrowserView(m_rows, this);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    ListView1->header()->resizeSection(0, 100);
    ListView1->header()->resizeSection(1, 72);
    ListView1->header()->resizeSection(2, 260);
    ListView1->setColumnHidden(3, true);
    layout->addWidget(ListView1, 1);

    PicLoading = new QWidget(this);
    PicLoading->setObjectName(QStringLiteral("PicLoading"));
    auto* loading = new QHBoxLayout(PicLoading);
    loading->setContentsMargins(0, 0, 0, 0);
    auto* caption = Label(QStringLiteral("LblLoading"), PicLoading);
    caption->setText(Tr(QStringLiteral("Loading")));
    ProgressBar1 = new UCProgressBar(PicLoading);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setFixedHeight(16);
    CmdStop = new QPushButton(Tr(QStringLiteral("Stop")), PicLoading);
    CmdStop->setObjectName(QStringLiteral("CmdStop"));
    loading->addWidget(caption);
    loading->addWidget(ProgressBar1, 1);
    loading->addWidget(CmdStop);
    PicLoading->hide();
    layout->addWidget(PicLoading);

    auto* footer = new QHBoxLayout;
    LblTotalTime = Label(QStringLiteral("LblTotalTime"), this);
    LblTotalTime->setProperty("role", QStringLiteral("clock"));
    LblCursorTime = Label(QStringLiteral("LblCursorTime"), this);
    LblCursorTime->setProperty("role", QStringLiteral("clock"));
    ElaDiscControls = new QWidget(this);
    ElaDiscControls->setObjectName(QStringLiteral("ElaDiscControls"));
    auto* macroButtons = new QHBoxLayout(ElaDiscControls);
    macroButtons->setContentsMargins(0, 0, 0, 0);
    CmdNew = ToolButton(QStringLiteral("CmdNew"), QStringLiteral("New"), ElaDiscControls);
    macroButtons->addWidget(CmdNew);
    BuildMacroButtons(*macroButtons);
    ElaDiscControls->hide();
    CmdEject = ToolButton(QStringLiteral("CmdEject"), QStringLiteral("Eject"), this);
    auto* totalCaption = Label(QStringLiteral("LblTotalCaption"), this);
    totalCaption->setText(Tr(QStringLiteral("Total")));
    totalCaption->setProperty("role", QStringLiteral("caption"));
    LblCursorTime->setToolTip(Tr(QStringLiteral("Time before the selected row")));
    footer->addWidget(totalCaption);
    footer->addWidget(LblTotalTime);
    footer->addSpacing(12);
    footer->addWidget(LblCursorTime);
    footer->addStretch(1);
    footer->addWidget(ElaDiscControls);
    footer->addWidget(CmdEject);
    layout->addLayout(footer);

    TmrArrow = new QTimer(this);
    TmrArrow->setObjectName(QStringLiteral("TmrArrow"));
    TmrArrow->setInterval(1000);
    TmrSignalArrows = new QTimer(this);
    TmrSignalArrows->setObjectName(QStringLiteral("TmrSignalArrows"));
    TmrSignalArrows->setInterval(100);

    RestoreListColor();
    for (QObject* reporter : DragReporters())
        reporter->installEventFilter(this);
    ListView1->installEventFilter(this);
    TxtSearch->installEventFilter(this);
    connect(TmrArrow, &QTimer::timeout, this, &IFBrowserCart::TmrArrow_Timer);
    connect(TmrSignalArrows, &QTimer::timeout, this, &IFBrowserCart::TmrSignalArrows_Timer);
    connect(CmdStop, &QPushButton::clicked, this, &IFBrowserCart::Stop);
    connect(CmdSearch, &QToolButton::clicked, this, [this] { Search(TxtSearch->text(), false, false); });
    connect(TxtSearch, &QLineEdit::returnPressed, this, &IFBrowserCart::OnSearch);
    connect(CmdSelected, &QToolButton::toggled, this, &IFBrowserCart::SetSelected);
    connect(CmdEject, &QToolButton::clicked, this, &IFBrowserCart::Eject);
    connect(CmdNew, &QToolButton::clicked, this, &IFBrowserCart::New);
    connect(ListView1->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        ArrowPop();
        m_rows->sort(column);
    });
    connect(ListView1->selectionModel(), &QItemSelectionModel::selectionChanged, this, &IFBrowserCart::PerformSelection);
    connect(ListView1, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        Q_EMIT ItemClicked(m_rows->Row(index.row()).key);
    });
}
