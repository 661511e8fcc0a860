#pragma once

// Start-up reads of the station identity and the opening of the shared recordsets.
namespace modGlobals {
// Station ID and working resolution from the station file; lays out the background.
void InitGlobals();
// Opens Sound.MDB and User.MDB and the nine shared recordsets. Throws when a database fails.
void SetRecordsets();
// A hook called when the menu form starts and when the application unloads; does nothing.
void FinishApp();
}
