#include "onair/CartSearchDialog.h"
#include "foundation/Tr.h"
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

CartSearchDialog::CartSearchDialog(const QList<CartSearch::Row>& rows, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("CartSearchDialog"));
    setWindowTitle(Tr(QStringLiteral("Searching carts")));
    setAttribute(Qt::WA_DeleteOnClose);
    Table = new QTableWidget(static_cast<int>(rows.size()), 3, this);
    Table->setHorizontalHeaderLabels({QStringLiteral("ID"), QStringLiteral("Descripcio"), QStringLiteral("Comentari")});
    Table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Table->setSelectionBehavior(QAbstractItemView::SelectRows);
    Table->verticalHeader()->hide();
    Table->horizontalHeader()->setStretchLastSection(true);
    for (int r = 0; r < rows.size(); ++r) {
        const CartSearch::Row& row = rows[r];
        Table->setItem(r, 0, new QTableWidgetItem(row.ID));
        Table->setItem(r, 1, new QTableWidgetItem(row.Descripcio));
        Table->setItem(r, 2, new QTableWidgetItem(row.Comentari));
    }
    Table->resizeColumnsToContents();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Table);
    layout->addWidget(buttons);
    resize(720, 420);
}
