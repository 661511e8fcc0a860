#pragma once
#include <QStringList>
#include <QTimer>
#include <QWidget>

class QLabel;

// The notice that another workstation shouted: a small window at the top of the screen that
// never takes the focus or blocks the screen below, and goes away by itself after ShowMs or
// at a click. Notices that come while one is on show join it, the newest last, the last
// MaxNotices kept.
class NoticeWindow : public QWidget
{
    Q_OBJECT
public:
    static constexpr int ShowMs = 20000;
    static constexpr int MaxNotices = 3;

    NoticeWindow();

    void Add(const QString& from, const QString& text);
    QString Text() const;
    // The timer that hides the window, and its tick.
    const QTimer& TmrHide() const { return m_tmrHide; }
    void TmrHide_Timer();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Place();

    QLabel* LblText;
    QStringList m_notices;
    QTimer m_tmrHide;
};
