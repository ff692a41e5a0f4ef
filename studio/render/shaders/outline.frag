out vec4 result;

uniform sampler2D mask;
uniform vec2 pictureSize;
uniform float outlinePixels;
uniform vec3 outlineColour;

float Covered(vec2 pixel)
{
    return texture(mask, pixel / pictureSize).r;
}

// A ring around the silhouette: as far as the widened silhouette reaches beyond itself.
void main()
{
    float widened = 0.0;
    int reach = int(ceil(outlinePixels));
    for (int y = -reach; y <= reach; ++y) {
        for (int x = -reach; x <= reach; ++x) {
            float inside = clamp(outlinePixels + 0.5 - length(vec2(x, y)), 0.0, 1.0);
            if (inside > 0.0) {
                widened = max(widened, inside * Covered(gl_FragCoord.xy + vec2(x, y)));
            }
        }
    }
    float strength = widened * (1.0 - Covered(gl_FragCoord.xy));
    result = vec4(outlineColour, strength);
}
