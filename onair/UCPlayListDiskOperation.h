#pragma once
#include <QMetaObject>
#include <QList>
#include <QWidget>
#include <memory>

class KorvaneCommonDialog;
class QToolButton;
class iPlayList;

// The refresh, reload and save buttons of a playlist. Saving may need a macro ID and a
// description: the list asks, and the save dialog (macros only) and an input box answer. An ID
// chosen in the dialog with a description answers the description too, so nobody is asked
// twice. Reload and Save are enabled only while the control is enabled, a list is attached
// and it has a macro loaded.
class UCPlayListDiskOperation : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("UCPlayListDiskOperation");

    explicit UCPlayListDiskOperation(QWidget* parent = nullptr);
    ~UCPlayListDiskOperation() override;

    void Init();
    std::shared_ptr<iPlayList> PlayList() const { return m_list; }
    void SetPlayList(const std::shared_ptr<iPlayList>& list);
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool enabled);

    // The list's events.
    void iPlayList_RequestNameToSave(QString* name);
    void iPlayList_RequestDescriptionToSave(QString* description);
    void iPlayList_StatusChanged();

    void CmdRefresh_Click();
    void CmdReload_Click();
    void CmdSave_Click();
    KorvaneCommonDialog& Dialog() const { return *m_dialog; }

Q_SIGNALS:
    void Refresh();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QToolButton* MakeButton(const QString& name, const QString& glyph, const QString& tip);
    void GrabEnabled();

    QToolButton* CmdRefresh;
    QToolButton* CmdReload;
    QToolButton* CmdSave;
    KorvaneCommonDialog* m_dialog;
    std::shared_ptr<iPlayList> m_list;
    QList<QMetaObject::Connection> m_connections;
    // The description typed in the save dialog, for the question that follows it.
    QString m_dialogDescription;
    bool m_enabled = true;
};
