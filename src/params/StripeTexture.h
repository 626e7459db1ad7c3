// The stripe's eight surface textures as functions of a point across a band.
// The stripe panel's sample buttons and the stripe renderer both shade with
// these, so a sample shows exactly what the stripe looks like.
#pragma once

const int kTextureCount = 8;

// The falloff c(t) = 2t^3 - 3t^2 + 1: 1 on the band's centre line, 0 at its edge.
inline float StripeFalloff(float t) {
    return (2.0f * t - 3.0f) * t * t + 1.0f;
}

// How much of the band shows at t across it (0 on the centre line, 1 at the
// edge; beyond 1 nothing shows), for texture 0..7. `noise` (0..255) is the
// grain there: for texture 1 the noise byte at the point, for texture 2 the
// mean noise of the 3 x 3 box around it; the others ignore it. May exceed 1.
float StripeTextureFactor(int texture, float t, float noise);

// Texture 2 reads the box mean of the noise; texture 1 the noise itself.
inline bool TextureReadsBoxNoise(int texture) {
    return texture == 2;
}
inline bool TextureReadsNoise(int texture) {
    return texture == 1 || texture == 2;
}
