// Fetches the entries since a day from a server, and adds up the hours of each task. Parameters:
//     { "server": "http://127.0.0.1:8000/", "since": "2026-11-01" }
const response = utils.request(server + "entries", "GET", null, { since });
if (response.statusCode !== 200)
  throw new Error(`The server answered ${response.statusCode}`);

const hours = {};
for (const { task, seconds } of JSON.parse(response.result))
  hours[task] = (hours[task] ?? 0) + seconds / 3600;
hours;
