#pragma once
#include "browse/DataSheet.h"
#include <QColor>
#include <QFont>
#include <QWidget>

// The surface the data viewer prints on: a dark board showing a DataSheet line by line, the
// labels in one colour and the values in another. A line wider than the board is cut at its
// right edge.
class DataPicture : public QWidget
{
    Q_OBJECT
public:
    static inline const QColor LabelColor{255, 164, 164};
    static inline const QColor ValueColor{255, 255, 140};
    static inline const QColor BoardColor{0, 0, 0};

    explicit DataPicture(QWidget* parent = nullptr);

    void Show(DataSheet sheet);
    void Cls() { Show({}); }
    const DataSheet& Sheet() const { return m_sheet; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont m_font;
    DataSheet m_sheet;
};
