#pragma once
// The playlist controls on a demo station's real kernel (virtual clock, scripted dialogs, a
// recording logger). The demo has two lists: PL0001 "Top of the hour" (macro MES0001 loaded,
// chained, autoclose: CON0003, JIN0001, MUS0001) and PL0002 "Morning pads" (no macro: JIN0001,
// JIN0002, ESP0001, ESP0002, a blank row, NEW0002).
#include "DeckTest.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iPlayLists.h"
#include "onair/PlayListItemModel.h"
#include "onair/UCPlayListContents.h"
#include <QTableView>

class PlayListTest : public DeckTest
{
protected:
    std::shared_ptr<iPlayLists> Lists() const { return kernel->PlayLists(); }
    std::shared_ptr<iPlayList> List(const QString& id) const { return Lists()->Item(id); }

    // A grid showing a list, with its rows read (the reload timer ticked by hand).
    UCPlayListContents& Contents(const QString& listID)
    {
        contents = std::make_unique<UCPlayListContents>();
        contents->resize(640, 420);
        contents->show();
        contents->SetPlayList(listID.isEmpty() ? nullptr : List(listID));
        contents->TmrGrabContents_Timer();
        return *contents;
    }

    // Reads the rows again as the reload timer would, once it is due.
    void Grab()
    {
        ASSERT_TRUE(contents->TmrGrabContents().isActive()) << "a change of the list starts a reload";
        contents->TmrGrabContents_Timer();
    }

    const PlayListItemModel& Rows() const { return contents->Rows(); }
    QString Icon(int row, int column) const { return Rows().Row(row).Icon(column); }
    QString Text(int row, int column) const { return Rows().Row(row).Text(column); }

    // The IDs of the list's rows, "" for a blank one.
    QStringList ListIDs(const QString& listID) const
    {
        QStringList ids;
        const auto list = List(listID);
        for (int i = 1; i <= list->Count(); ++i)
            ids << (list->Item(i)->Cart() ? list->Item(i)->Cart()->ID() : QString());
        return ids;
    }

    // The pointer moves over a row of the grid, as a drag passing over it reports.
    void MoveOverRow(int row, Qt::MouseButtons held = Qt::NoButton) const
    {
        QWidget* viewport = contents->Grid()->viewport();
        const QPoint at = viewport->mapFrom(contents.get(), contents->RowPoint(row));
        QMouseEvent move(QEvent::MouseMove, at, viewport->mapToGlobal(at), Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
    }

    void PressRow(int row) const
    {
        QWidget* viewport = contents->Grid()->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, viewport->mapFrom(contents.get(), contents->RowPoint(row)));
    }

    void TearDown() override
    {
        contents.reset();
        DeckTest::TearDown();
    }

    std::unique_ptr<UCPlayListContents> contents;
};
