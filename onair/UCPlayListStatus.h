#pragma once
#include "onair/PlayListStatusTable.h"
#include <QHash>
#include <QList>
#include <QMetaObject>
#include <QWidget>
#include <memory>

class QLabel;
class QToolButton;
class UCChannelStreamSelector;
class iPlayList;

// The status strip of a playlist: a lamp and a word for loaded, playing, modified, chained
// and autoclose, the macro loaded, the start time of a waiting list, and Play on the chosen
// stream. A click on the chained word flips Chained; a right press on the macro opens the
// list's menu (Shuffle). Everything shown comes from the list's state, read again at each of
// its StatusChanged events.
class UCPlayListStatus : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("UCPlayListStatus");
    static inline const QString ShuffleKey = QStringLiteral("UCPlayListStatus.Shuffle");

    explicit UCPlayListStatus(QWidget* parent = nullptr);
    ~UCPlayListStatus() override;

    // Translates the words once and reads the channels of the stream selector.
    void Init();
    std::shared_ptr<iPlayList> PlayList() const { return m_list; }
    void SetPlayList(const std::shared_ptr<iPlayList>& list);
    void iPlayList_StatusChanged();

    void CmdPlay_Click();
    void LblChained_Click();
    void LblLoadedContents_RightPress(const QPoint& globalPos);

    // What the strip shows, for the host and the tests.
    QString Icon(PlayListStatusTable::Line line) const { return m_icons.value(line); }
    QString Word(PlayListStatusTable::Line line) const;
    QString LoadedContents() const;
    bool WaitShown() const;
    QString WaitText() const;
    bool PlayShown() const;
    UCChannelStreamSelector* Selector() const { return UCChannelStreamSelector1; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateControls();
    void GrabStatus();
    void ShowLine(PlayListStatusTable::Line line, const PlayListStatusTable::Shown& shown);
    PlayListStatusTable::Facts ReadFacts() const;

    QLabel* m_images[PlayListStatusTable::LineCount];
    QLabel* m_labels[PlayListStatusTable::LineCount];
    QLabel* LblLoadedContents;
    QLabel* PicWaitFor;
    QLabel* LblWaitFor;
    QToolButton* CmdPlay;
    UCChannelStreamSelector* UCChannelStreamSelector1;

    std::shared_ptr<iPlayList> m_list;
    QList<QMetaObject::Connection> m_connections;
    QHash<int, QString> m_icons;
    // The words as shown: English until Init translates them.
    QHash<QString, QString> m_words;
};
