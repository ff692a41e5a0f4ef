out vec4 result;

uniform sampler2D source;

// The mean of four texels, taken in linear light by the sampler.
void main()
{
    result = texture(source, gl_FragCoord.xy * 2.0 / vec2(textureSize(source, 0)));
}
