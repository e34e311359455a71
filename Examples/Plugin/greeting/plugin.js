// Greets, and remembers in its folder how often it did. Parameters, if there are any: { "name": "Ada" }
const visits = Number(utils.contentsOfFile("visits.txt") ?? 0) + 1;
utils.writeToFile("visits.txt", String(visits));
utils.log({ visits });

const who = typeof name === "string" ? name : utils.localize("World");
const times = visits === 1 ? utils.localize("Once") : utils.localize("Times").replace("%d", visits);
`${utils.localize("Hello")}, ${who}! ${times}`;
