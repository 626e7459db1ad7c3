// Placeholder for the working state that the host's effect renderer keeps
// inside some parameter objects. The remote control never reads, writes or
// copies it, so it is an empty member here.
#pragma once

struct EffectRendererState {};
