#pragma once
#include <QWidget>

class UCButton;
class VolmarPannel;

// The kernel panel of the Live screen: Refresh and Import in the "Kernel" frame, Shout in the
// "Studios" frame. Each button calls the kernel with the hourglass pointer during the call and
// shows what follows only from the kernel's events. Refresh asks first through a popup when
// the station setting "RefreshForcesMenu" is "yes". The panel lays itself out in whatever size
// its host gives it (about 115 x 92 pixels on the Live screen).
class IFKernel : public QWidget
{
    Q_OBJECT
public:
    explicit IFKernel(QWidget* parent = nullptr);
    ~IFKernel() override;

    VolmarPannel* PanKernel;
    VolmarPannel* PanStudios;
    UCButton* CmdRefresh;
    UCButton* CmdImport;
    UCButton* CmdShout;

    void CmdRefresh_Click();
    void CmdImport_Click();
    void CmdShout_Click();
    // Hourglass, the kernel's Refresh, normal pointer.
    void DoRefresh();
    // Translates the frames' captions and redraws the keys with their translated words.
    void TranslateMe();

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    UCButton* MakeButton(QWidget* parent, const QString& name, const QString& sign);
    void Arrange();
    void RenderPictures();
    void PopupMenu_Click(const QString& key);

    QWidget* m_kernelKeys;
    QWidget* m_studioKeys;
};
