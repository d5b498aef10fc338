#include "window/graphs/ExceptionText.h"

#include <new>
#include <stdexcept>

namespace tremlo {

QString CurrentExceptionText() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
  } catch (const std::length_error&) {  // a vector that no memory could hold
  } catch (...) {
    return QStringLiteral("予期せぬエラーが発生したため、処理を中止しました。");
  }
  return QStringLiteral("メモリが不足しているため、処理を中止しました。");
}

}  // namespace tremlo
