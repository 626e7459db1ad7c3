// Placeholder until the tile renderer lands: paints nothing.
#include "render/RenderCore.h"

namespace vellrender {

int RenderTile(const KTEffectTile&, const Picture& picture, const Part& part, const Options&) {
    return CheckTarget(picture, part);
}

}  // namespace vellrender
