#pragma once
#include <QComboBox>
#include <memory>

class iStream;

// Chooses an output: one line per stream of every playing channel ("A 1", "A 2", "B 1"...),
// read from the kernel when the control is filled. The first line is chosen at the start.
class UCChannelStreamSelector : public QComboBox
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("UCChannelStreamSelector");

    explicit UCChannelStreamSelector(QWidget* parent = nullptr);

    // Reads the channels again, keeping the chosen line when it still exists.
    void Fill();
    QString ChannelName() const;
    int StreamIndex() const;
    // Chooses a line; false when the channel has no such stream here.
    bool Choose(const QString& channelName, int streamIndex);
    // The chosen stream; null when there is none.
    std::shared_ptr<iStream> Stream() const;
};
