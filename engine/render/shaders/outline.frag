out vec4 result;

uniform sampler2D mask;
uniform vec2 pictureSize;
uniform float outlinePixels;
uniform vec3 outlineColour;
uniform bool glows;

const float rimStrength = 0.6;

float Covered(vec2 pixel)
{
    return texture(mask, pixel / pictureSize).r;
}

// How much of a pixel lies within this width of the edge of another pixel; of a glow, how bright it
// still is there.
float Inside(float width, vec2 offset)
{
    float left = width + 1.0 - length(offset);
    return clamp(glows ? left / width : left, 0.0, 1.0);
}

// A ring around the silhouette: as far as the widened silhouette reaches beyond itself. A darker
// rim of one pixel sets it off from bright things and from those of its own colour.
void main()
{
    float ring = 0.0;
    float rim = 0.0;
    int reach = int(ceil(outlinePixels + 1.0));
    for (int y = -reach; y <= reach; ++y) {
        for (int x = -reach; x <= reach; ++x) {
            vec2 offset = vec2(x, y);
            float covered = Covered(gl_FragCoord.xy + offset);
            ring = max(ring, Inside(outlinePixels, offset) * covered);
            rim = max(rim, Inside(outlinePixels + 1.0, offset) * covered);
        }
    }
    float outside = 1.0 - Covered(gl_FragCoord.xy);
    float strength = outside * max(ring, rimStrength * rim);
    result = vec4(outlineColour * ring / max(max(ring, rimStrength * rim), 0.001), strength);
}
