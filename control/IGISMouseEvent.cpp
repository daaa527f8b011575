#include <tavru/control/IGISMouseEvent.h>

namespace tavru {

IGISMouseEvent::~IGISMouseEvent() = default;

void IGISMouseEvent::GISMouseClick(const TPoint &) {}
void IGISMouseEvent::GISMouseDblClick(const TPoint &) {}
void IGISMouseEvent::GISMouseMove(const TPoint &) {}
void IGISMouseEvent::GISMouseUp(const TPoint &, TMouseButton, TShiftState) {}
void IGISMouseEvent::GISMouseDown(const TPoint &, TMouseButton, TShiftState) {}
void IGISMouseEvent::GISPaint() {}
void IGISMouseEvent::GISSelecionou(TGISObjeto *) {}
void IGISMouseEvent::GisMouseLeave() {}
bool IGISMouseEvent::GISMouseWheel(const TPoint &, const TPoint &, const TPoint &, TShiftState) { return false; }
bool IGISMouseEvent::GISKeyDown(int, TShiftState) { return false; }

} // namespace tavru
