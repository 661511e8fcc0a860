#pragma once
#include <QWidget>
#include <memory>

class QComboBox;
class QSpinBox;
class iStream;

// The choice of an output: a playing channel of the kernel and one of its streams (1-based).
// Init fills the channels; Changed comes with every change the user makes.
class UCChannelStreamSelector : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("UCChannelStreamSelector");

    explicit UCChannelStreamSelector(QWidget* parent = nullptr);
    ~UCChannelStreamSelector() override;

    // Lists the kernel's playing channels and keeps the choice when it is still there.
    void Init();
    QString ChannelName() const;
    void SetChannelName(const QString& name);
    int StreamIndex() const;
    void SetStreamIndex(int index);
    // The stream chosen; null when the kernel has no such stream.
    std::shared_ptr<iStream> Stream() const;
    // The stream of the chosen index on another channel, or its last stream when it has fewer.
    static std::shared_ptr<iStream> StreamOf(const QString& channel, int index);

    QComboBox* CboChannel;
    QSpinBox* TxtStream;

Q_SIGNALS:
    void Changed();

private:
    void FitStreamRange();
};
