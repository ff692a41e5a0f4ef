in vec3 eyePosition;
in vec3 eyeNormal;
out vec4 result;

uniform vec3 base;
uniform float emission;
uniform float diffuse;
uniform float highlight;
uniform float shininess;
uniform float opacity;
uniform int alphaReference;

uniform vec3 towardsKey;
uniform vec3 towardsFill;
uniform float keyIntensity;
uniform float fillIntensity;
uniform float skyIntensity;

#ifdef PEEL
uniform sampler2D peeledDepth;
#endif

float Direct(vec3 n)
{
    return keyIntensity * max(0.0, dot(n, towardsKey)) +
           fillIntensity * max(0.0, dot(n, towardsFill)) + skyIntensity * (0.5 + 0.5 * n.y);
}

float Highlight(vec3 n)
{
    if (dot(n, towardsKey) <= 0.0) {
        return 0.0;
    }
    vec3 halfway = normalize(towardsKey - normalize(eyePosition));
    return highlight * pow(max(0.0, dot(n, halfway)), shininess);
}

void main()
{
#ifdef PEEL
    if (gl_FragCoord.z <= texelFetch(peeledDepth, ivec2(gl_FragCoord.xy), 0).r) {
        discard;
    }
#endif
    float alpha = opacity;
#ifdef ALPHA_COMPARISON
    int alphaByte = int(alpha * 255.0 + 0.5);
    if (!(alphaByte ALPHA_COMPARISON alphaReference)) {
        discard;
    }
#endif
#ifndef LIT
    result = vec4(1.0);
#else
    // A back face is only drawn when the material is double-sided; it is lit from the viewer's side.
    vec3 n = normalize(gl_FrontFacing ? eyeNormal : -eyeNormal);
    vec3 light = base * (emission + diffuse * Direct(n)) * alpha;
#ifdef HIGHLIGHT
    light += Highlight(n);
#endif
    result = vec4(light, alpha);
#endif
}
