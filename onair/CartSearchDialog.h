#pragma once
#include "onair/CartSearch.h"
#include <QDialog>

class QTableWidget;

// The carts a search found, in a read-only table: ID, description and comment.
class CartSearchDialog : public QDialog
{
    Q_OBJECT
public:
    CartSearchDialog(const QList<CartSearch::Row>& rows, QWidget* parent = nullptr);

    QTableWidget* Table;
};
