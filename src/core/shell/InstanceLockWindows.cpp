#include "core/shell/InstanceLock.h"

#include <windows.h>

namespace tremlo {

bool InstanceLock::Take() {
  // Names without a prefix belong to the login. The system takes the mark away with the last program that has
  // it.
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Morvane.exe");
  const DWORD error = GetLastError();
  // One that runs with more rights keeps its mark to itself. Any other reason is no other instance.
  if (!mutex) return error != ERROR_ACCESS_DENIED;
  std::shared_ptr<void> mark(mutex, CloseHandle);
  if (error == ERROR_ALREADY_EXISTS) return false;
  m_mark = std::move(mark);
  return true;
}

}  // namespace tremlo
