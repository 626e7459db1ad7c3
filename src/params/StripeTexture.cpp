#include "params/StripeTexture.h"

float StripeTextureFactor(int texture, float t, float noise) {
    if (t > 1.0f) return 0.0f;
    switch (texture) {
        case 0: return 1.0f;
        case 1: {
            const float v = StripeFalloff(t) * noise / 255.0f + 0.2f;
            return v > 1.0f ? 1.0f : (v < 0.22f ? 0.0f : v);
        }
        case 2: {
            const float a = 1.0f - (0.7f * StripeFalloff(t) + 0.3f) * (noise / 255.0f);
            return 1.0f - a * a;
        }
        case 3: {
            const float k = (1.0f - 0.1f) / (0.9f * 0.9f);
            const float u = 1.0f - ((t - 0.9f) * (t - 0.9f) * k + 0.1f);
            return 1.0f - u * u;
        }
        case 4: return 0.65f * t * t + 0.35f;
        case 5: return t < 0.1f ? 0.0f : 1.0f;
        case 6: return (t >= 0.3f && t <= 0.4f) ? 0.0f : 1.0f;
        case 7: return (t > 0.55f && t < 0.85f) ? 0.0f : 1.0f;
        default: return 1.0f;
    }
}
