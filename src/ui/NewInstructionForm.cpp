#include "ui/NewInstructionForm.h"

namespace tavvel {

void NewInstructionForm::fill(const Setup& setup) { setup_ = setup; }

} // namespace tavvel
