#pragma once
#include <QWidget>
#include <memory>
#include <vector>

class ElasticPanel;
class IFVumeter;
class VolmarPannel;
class iChannels;

// The row of level meters: one IFVumeter for each channel of the kernel, spread across an
// elastic panel inside a titled frame. All meters read their levels on the shared meter
// clock's 40 ms tick, and their running lamps blink on its 250 ms beat. The row starts itself
// shortly after creation when a kernel is present; a change of the channels is taken up by
// calling Regenerate again.
class IFVumeters : public QWidget
{
    Q_OBJECT
public:
    explicit IFVumeters(QWidget* parent = nullptr);
    ~IFVumeters() override;

    // Translates the caption, builds the meters and joins the meter clock; once only, and only
    // with a kernel.
    void Init();
    void Regenerate();

    // The meters, 1 to MemberCount().
    int MemberCount() const { return static_cast<int>(m_members.size()); }
    IFVumeter* Member(int index) const;
    bool Blink() const { return m_blink; }

    void Timer1_Timer();
    void Timer250_Timer();

    VolmarPannel* VolmarPannel1;
    ElasticPanel* vsElastic1;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void ClearMembers();

    std::shared_ptr<iChannels> m_channels;
    std::vector<IFVumeter*> m_members;
    bool m_blink = false;
    bool m_started = false;
};
