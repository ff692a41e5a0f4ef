out vec4 result;

uniform vec3 encodedTop;
uniform vec3 encodedBottom;
uniform float rows;
uniform float dither;

// Less than one step of the encoded picture, so that the gradient shows no bands.
float Noise()
{
    return fract(52.9829189 * fract(dot(gl_FragCoord.xy, vec2(0.06711056, 0.00583715)))) - 0.5;
}

void main()
{
    vec3 encoded = mix(encodedTop, encodedBottom, gl_FragCoord.y / rows) + dither * Noise() / 255.0;
    result = vec4(encoded, 1.0);
}
