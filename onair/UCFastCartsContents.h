#pragma once
#include "onair/PadKeyMap.h"
#include <QList>
#include <QMetaObject>
#include <QTimer>
#include <QWidget>
#include <memory>

class IFFastCart;
class QScrollBar;
class iCart;
class iPlayList;
class iStream;

// The grid of 28 pads, seven rows of four, a view of a kernel playlist: item n (1-based) is
// pad n-1, its cart the pad's cart and its property "SerializedPadColors" the pad's colours.
// A list may be shorter (the other pads are free); items beyond the 28th have no pad and are
// left alone, with a WARN line at each load.
//
// A pad plays on a stream that the host chooses: a key (SendShortcut) names the stream, a press
// asks for it with RequestPreferredStream, which the host answers by writing the stream into
// its argument (a direct connection); no stream, no play.
class UCFastCartsContents : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("UCFastCartsContents");
    static constexpr int Rows = PadKeyMap::Rows;
    static constexpr int Columns = PadKeyMap::Columns;
    static constexpr int NumSlots = PadKeyMap::NumSlots;

    explicit UCFastCartsContents(QWidget* parent = nullptr);
    ~UCFastCartsContents() override;

    // Creates the pads, lays them out and shows the list; the host calls it once.
    void Init();
    bool MousePerformsPlay() const { return m_mousePerformsPlay; }
    void SetMousePerformsPlay(bool on);
    std::shared_ptr<iPlayList> PlayList() const { return m_playList; }
    void SetPlayList(std::shared_ptr<iPlayList> playList);
    // A key typed for the pads: the pad of that key plays on the stream.
    void SendShortcut(QChar key, const std::shared_ptr<iStream>& preferredStream);
    // An old-style drop: the cart (or none, for an ID that is no cart) goes to the pad under
    // the pointer and into the list.
    void Drop(const QString& cartID);
    void RefreshFromPlaylist();
    // Plays a pad's cart on a stream; a free pad ejects that stream's player.
    void Play(int index, const std::shared_ptr<iStream>& stream);

    IFFastCart* Pad(int index) const { return m_pads.value(index); }
    const QTimer& TmrRefresh() const { return m_tmrRefresh; }
    void TmrRefresh_Timer();

    void iPlayList_ContentChanged();
    void iPlayList_ChangedPlayListItem(qint32 index);

Q_SIGNALS:
    void OldStyleTryToDrag(const QString& cartID);
    void RequestPreferredStream(std::shared_ptr<iStream>& stream, Qt::MouseButton button, Qt::KeyboardModifiers shift);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void LoadFastCarts();
    void ConnectPad(IFFastCart* pad);
    void RepositionAll();
    void LoadContents();
    void UnloadContents();
    void ShowPads(bool show);
    void GrabPlayListItem(qint32 item, int index);
    void FreePad(int index);
    void ConnectPlayList();
    void Put(int index, const std::shared_ptr<iCart>& cart);
    void StoreColors(int index);
    void Pad_RequestPlay(int index, Qt::MouseButton button, Qt::KeyboardModifiers shift);
    static bool PointerOver(const QWidget* widget);

    QList<IFFastCart*> m_pads;
    QScrollBar* VScroll1;
    QTimer m_tmrRefresh;
    std::shared_ptr<iPlayList> m_playList;
    QList<QMetaObject::Connection> m_listConnections;
    // Counts loads, so that a load that yielded sees whether another one began meanwhile.
    int m_loadGeneration = 0;
    bool m_initDone = false;
    bool m_mousePerformsPlay = false;
};
