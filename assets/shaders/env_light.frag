#version 110
// The light a distant lamp adds to the field. texture2 holds the ground's
// slopes: red and green around 127 are the tilt along x (right) and y (up the
// screen), blue the upright part. The result is added to the frame.
uniform sampler2D texture1;
uniform sampler2D texture2;
uniform vec3 light_direction;
uniform vec4 light_color;

void main()
{
    vec2 uv = gl_TexCoord[0].st;
    vec3 slope = texture2D(texture2, uv).rgb;
    vec3 normal = normalize(vec3((slope.rg - vec2(127.0 / 255.0)) * 8.0, slope.b));
    vec3 toLight = normalize(light_direction);
    float diffuse = max(dot(normal, toLight), 0.0);
    vec3 ground = texture2D(texture1, uv).rgb;
    gl_FragColor = vec4(ground * light_color.rgb * diffuse, 1.0);
}
