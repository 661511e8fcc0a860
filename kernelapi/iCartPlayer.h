#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iCart;
class iPlayList;
class iStream;

// The states of a cart player, as Status reports them.
enum class CartPlayerStatus : qint32 {
    Ready = 0,    // nothing is sounding or cued
    Playing = 1,
    Paused = 2,   // paused in mid-cart
    Cueing = 3,   // on its way to a cue point
    Cued = 4,     // standing at a cue point, ready to play
    Expiring = 5, // about to end; shown flashing
    Sync = 6,     // in synchronised mode
};

// A player of carts, macros and playlists on one stream. The holder shows state only from the
// events: a command is answered by StatusChanged and the display events. A failed call
// throws KernelError.
//
// PlayPosition is both a reading and an event. Connect to the event with
// qOverload<qint32>(&iCartPlayer::PlayPosition); an implementation that overrides the reading
// brings the event back into scope with `using iCartPlayer::PlayPosition;`.
class iCartPlayer : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iCartPlayer() override = default;

    // The English word shown for a status value; values outside the table read "Unknown".
    static QString StatusWord(qint32 status)
    {
        static constexpr const char* words[] = {"Ready", "Playing", "Paused", "Cueing", "Cued", "Expiring", "Sync"};
        constexpr qint32 count = sizeof(words) / sizeof(words[0]);
        return status >= 0 && status < count ? QString::fromLatin1(words[status]) : QStringLiteral("Unknown");
    }

    // Whether a cart is in the player.
    virtual bool Loaded() const = 0;
    // The stream the player sounds on.
    virtual std::shared_ptr<iStream> Stream() const = 0;
    // Whether the cart repeats when it ends.
    virtual bool Loop() const = 0;
    virtual void SetLoop(bool loop) = 0;
    // Volume in dB; -110 is silence. Raises VolumeChanged.
    virtual qint16 Volume() const = 0;
    virtual void SetVolume(qint16 volume) = 0;
    // Position in ms while cueing or cued; 0 is the start of the cart.
    virtual qint32 CuePosition() const = 0;
    // Time in ms left from the cue position, the time shown while cueing or cued.
    virtual qint32 CueRemaining() const = 0;
    // Where the next Play starts, in ms from the start of the cart.
    virtual void SetPosition(qint32 position) = 0;
    // Position in ms while paused.
    virtual qint32 PausePosition() const = 0;
    // Time in ms left from the pause position, the time shown while paused.
    virtual qint32 PauseRemaining() const = 0;
    // Position in ms while playing.
    virtual qint32 PlayPosition() const = 0;
    // The present state, a CartPlayerStatus value; other values have no meaning.
    virtual qint32 Status() const = 0;
    // What the title line shows.
    virtual QString DisplayTitle() const = 0;
    // The cart in the player; null when empty.
    virtual std::shared_ptr<iCart> Cart() const = 0;
    // Sets the volume to 0 dB.
    virtual void VolumeToZero() = 0;
    // Sets the volume stored with the cart.
    virtual void VolumeToCartDefault() = 0;
    // Stores the present volume in the cart.
    virtual void SaveDefaultVolume() = 0;
    // Puts a cart into the player; Loaded tells afterwards whether it was accepted.
    virtual void Load(const std::shared_ptr<iCart>& cart) = 0;
    // Puts a playlist into the player, to be played item after item.
    virtual void Load(const std::shared_ptr<iPlayList>& playList) = 0;
    // Starts what is loaded. chained: start right behind what this player's stream plays now
    // (the second of two windows played back to back); preferredStream: the stream to sound
    // on, null for the player's own; latency: ms the kernel may take to start. reserved and
    // immediate are kept for kernels that need them and are false from every caller.
    virtual void Play(bool chained = false, bool reserved = false, const std::shared_ptr<iStream>& preferredStream = nullptr,
                      bool immediate = false, qint32 latency = 2000) = 0;
    // Pauses while playing; resumes while paused.
    virtual void Pause() = 0;
    // Empties the player.
    virtual void Eject() = 0;
    // Goes to the cue position.
    virtual void Cue() = 0;
    // Goes back to the start of the cue.
    virtual void Recue() = 0;
    // One step of winding forward; speed is how far the step goes, in ms of the cart.
    virtual void FastForward(qint32 speed) = 0;
    // One step of winding back; speed is how far the step goes, in ms of the cart.
    virtual void Rewind(qint32 speed) = 0;
    // Jumps to the next step of a macro or playlist.
    virtual void Skip() = 0;
    // Stops playing, as at the end of a fade out.
    virtual void Stop() = 0;

Q_SIGNALS:
    void DisplayTitleChanged(const QString& title);
    // Two ready-made running-time texts; the holder shows one of them, by the user's choice.
    void DisplayTimeChanged(const QString& timeA, const QString& timeB);
    // Share of the cart still to play, 0 to 100.
    void PercentToGoChanged(float percent);
    // A CartPlayerStatus value.
    void StatusChanged(qint32 status);
    // Volume in dB.
    void VolumeChanged(qint16 volume);
    // Position in ms while playing, for a moving play cursor.
    void PlayPosition(qint32 position);
};
