out vec4 result;

uniform vec3 base;
uniform float emission;
uniform float diffuse;
uniform float highlight;
uniform float shininess;
uniform float opacity;
uniform int alphaReference;
uniform float highlightCost;

uniform vec3 towardsKey;
uniform vec3 towardsFill;
uniform float keyIntensity;
uniform float fillIntensity;
uniform float skyIntensity;

uniform vec4 viewer;

#ifdef PEEL
uniform sampler2D peeledDepth;
#endif

vec3 TowardsEye()
{
    return normalize(viewer.xyz - viewer.w * eyePosition);
}

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
    vec3 halfway = normalize(towardsKey + TowardsEye());
    return highlight * pow(max(0.0, dot(n, halfway)), shininess);
}

void main()
{
    // Whatever asks neighbouring pixels comes first, before some of them may be given up.
#ifdef TEXTURED
    Place place = SurfacePlace();
    vec4 primaryTexel = PrimaryTexel(place);
    float coverage = Coverage(place, primaryTexel);
#else
    const float coverage = 1.0;
#endif
#ifdef LIT
    // A back face is only drawn when the material is double-sided; it is lit from the viewer's side.
    vec3 n = normalize(gl_FrontFacing ? eyeNormal : -eyeNormal);
#ifdef HEIGHT
    n = BumpedNormal(n, eyePosition, place);
#endif
#ifdef LAYER_environment
    vec3 towardsEye = TowardsEye();
    vec3 surroundings = Surroundings(reflect(-towardsEye, n));
#endif
#endif
#ifdef PEEL
    if (gl_FragCoord.z <= texelFetch(peeledDepth, ivec2(gl_FragCoord.xy), 0).r) {
        discard;
    }
#endif
    float alpha = opacity * coverage;
#ifdef ALPHA_COMPARISON
    int alphaByte = int(alpha * 255.0 + 0.5);
    if (!(alphaByte ALPHA_COMPARISON alphaReference)) {
        discard;
    }
#endif
#ifndef LIT
    result = vec4(1.0);
#else
#ifdef TEXTURED
    vec3 colour = base * SurfaceColour(place, primaryTexel);
    float shine = HighlightAmount(place, primaryTexel);
    float body = diffuse * (1.0 - highlightCost * shine) / (1.0 - highlightCost);
#else
    vec3 colour = base;
    const float shine = 1.0;
    float body = diffuse;
#endif
    vec3 light = colour * (emission + body * Direct(n)) * alpha;
#ifdef LAYER_environment
    float mirror = ReflectionAmount(n, towardsEye, primaryTexel);
    light = mix(light, surroundings * coverage, mirror);
    alpha = mix(alpha, coverage, mirror);
#endif
#ifdef HIGHLIGHT
    light += Highlight(n) * shine * coverage;
#endif
    result = vec4(light, alpha);
#endif
}
