#pragma once
#include <QFrame>

class QLabel;

// The station panel: "Station ID: " and the kernel's station identifier.
class IFStationID : public QFrame
{
    Q_OBJECT
public:
    explicit IFStationID(QWidget* parent = nullptr);
    QString Caption() const;
    // Writes the caption in the language in use.
    void TranslateMe();

private:
    QLabel* LblCaption;
};
