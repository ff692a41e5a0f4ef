out vec4 result;

uniform sampler2D source;

void main()
{
    result = texelFetch(source, ivec2(gl_FragCoord.xy), 0);
}
