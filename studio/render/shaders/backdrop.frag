out vec4 result;

uniform vec3 encodedTop;
uniform vec3 encodedBottom;
uniform float rows;
uniform float dither;

vec3 Linear(vec3 encoded)
{
    return mix(encoded / 12.92, pow((encoded + 0.055) / 1.055, vec3(2.4)),
               greaterThan(encoded, vec3(0.04045)));
}

// Less than one step of the encoded picture, so that the gradient shows no bands.
float Noise()
{
    return fract(52.9829189 * fract(dot(gl_FragCoord.xy, vec2(0.06711056, 0.00583715)))) - 0.5;
}

void main()
{
    vec3 encoded = mix(encodedTop, encodedBottom, gl_FragCoord.y / rows) + dither * Noise() / 255.0;
    result = vec4(Linear(clamp(encoded, 0.0, 1.0)), 1.0);
}
