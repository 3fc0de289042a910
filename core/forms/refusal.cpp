#include "core/forms/refusal.h"

#include "ui/control.h"

namespace core {

void refuse(Workplace& place, const Refusal& refusal) {
    if (refusal.control) refusal.control->setProblem(refusal.text);
    place.desktop.message(refusal.text, refusal.icon, refusal.title);
    if (refusal.control) place.desktop.focus(*refusal.control);
}

}  // namespace core
