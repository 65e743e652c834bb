#include "shell/CTableProperties.h"

namespace pactora::shell {

void CTableProperties::Save() {
  if (!mTable || !module_.gHostApp) platform::Raise(platform::RuntimeError::ObjectNotSet);
  host::HostApp& app = *module_.gHostApp;
  msOid = mTable->Oid();
  mIndex = mTable->Indexes().Current();
  mbCursorFlagA = mTable->CursorFlagA();
  mbCursorFlagB = mTable->CursorFlagB();
  mSelectionA = app.SelectionA().Current();
  mSelectionB = app.SelectionB().Current();
  mSelectionC = app.SelectionC().Current();
  mbSaved = true;
  mbApplicationFlag = app.ApplicationFlag();
}

void CTableProperties::Restore(bool pbRestoreApplication) {
  if (!mbSaved) return;
  mTable->SetCursorFlagA(mbCursorFlagA);
  mTable->SetCursorFlagB(mbCursorFlagB);
  if (!msOid.empty()) mTable->FindOid(msOid, host::kFlagsRestore);
  if (mIndex) mTable->Indexes().SetCurrent(mIndex);
  if (pbRestoreApplication) {
    host::HostApp& app = *module_.gHostApp;
    app.SelectionA().SetCurrent(mSelectionA);
    app.SelectionB().SetCurrent(mSelectionB);
    app.ActivateSelectionC(mSelectionC);
    app.SetApplicationFlag(mbApplicationFlag);
  }
}

}  // namespace pactora::shell
