#pragma once
#include <QWidget>

// A striped progress bar: on a light blue ground, black vertical lines the full height at
// x = 1, 4, 7, ... as far as Percent of the width.
class UCProgressBar : public QWidget
{
    Q_OBJECT
public:
    explicit UCProgressBar(QWidget* parent = nullptr);

    float Percent() const { return m_percent; }
    void SetPercent(float percent);
    // The last column that may carry a line for the present Percent and width.
    int StripeEnd() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    float m_percent = 0;
};
